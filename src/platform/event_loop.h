#pragma once

#include "platform/clock.h"

namespace lokera {

/// The one place where the program lets time pass.
class EventLoop {
 public:
  virtual ~EventLoop() = default;

  /// Delivers everything that is due (timers, socket events, the interface) and returns. When nothing is due
  /// it blocks until the next thing is, or until the monotonic clock reaches `scadenza`, whichever comes
  /// first. Any handler of the program may run during the call, also one that calls this again.
  virtual void esegui_eventi(Monotonic scadenza) = 0;
};

}  // namespace lokera
