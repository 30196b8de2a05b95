#pragma once

#include <functional>

#include "platform/clock.h"
#include "platform/event_loop.h"

namespace lokera {

/// The one polled wait. Nothing else in the program runs the event loop.
class PolledWait {
 public:
  PolledWait(const Clock& orologio, EventLoop& ciclo) : orologio_(orologio), ciclo_(ciclo) {}

  /// Runs the event loop until `pronto` holds or more than `secondi` whole clock seconds have passed, counted
  /// as a clock face shows them: a limit of 2 ends between 2 and 3 seconds after the call, with the tick of
  /// the second. The deadline is worked out once, on the monotonic clock, so a changed clock or midnight
  /// can't move it. Returns whether `pronto` held. `pronto` is tested before the first event is delivered.
  bool attendi(int secondi, const std::function<bool()>& pronto);

  /// Serves the whole time: until more than `secondi` whole clock seconds have passed. With 0: until the
  /// clock shows another second.
  void attendi_oltre(int secondi);

  /// Calls `tentativo` at once and then every `ogni` until it gives true, the event loop running in between,
  /// for `limite` at most; the last try falls on the limit. Returns whether one succeeded.
  bool ritenta(Monotonic ogni, Monotonic limite, const std::function<bool()>& tentativo);

  /// Delivers what is due and returns without waiting.
  void cedi();

  const Clock& orologio() const { return orologio_; }

 private:
  const Clock& orologio_;
  EventLoop& ciclo_;
};

}  // namespace lokera
