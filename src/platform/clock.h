#pragma once

#include <QDateTime>

#include <chrono>

namespace lokera {

/// Time for waits: nanoseconds since a moment that means nothing by itself. It never goes back.
using Monotonic = std::chrono::nanoseconds;

/// Two kinds of time. Days, bands and stamps are read from the calendar, which people set back and forth;
/// waits are measured on the monotonic clock only.
class Clock {
 public:
  virtual ~Clock() = default;

  /// The computer's local time, to the millisecond.
  virtual QDateTime adesso() const = 0;

  virtual Monotonic monotono() const = 0;
};

}  // namespace lokera
