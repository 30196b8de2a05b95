#pragma once

#include <chrono>

#include "platform/momento.h"

namespace lokera {

/// Time for waits: nanoseconds since a moment that means nothing by itself. It never goes back.
using Monotonic = std::chrono::nanoseconds;

/// Two kinds of time. Days, bands and stamps are read from the calendar, which people set back and forth;
/// waits are measured on the monotonic clock only.
class Clock {
 public:
  virtual ~Clock() = default;

  /// What the computer's calendar and clock face show, to the millisecond: a `momento`, like every other
  /// one. In summer's last hour it goes back like the face.
  virtual QDateTime adesso() const = 0;

  virtual Monotonic monotono() const = 0;
};

}  // namespace lokera
