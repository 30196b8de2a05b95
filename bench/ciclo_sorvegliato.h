#pragma once

#include <algorithm>

#include "adapters/base/qt_clock.h"
#include "platform/event_loop.h"

namespace lokera::bench {

/// The event loop, with the longest stretch kept during which nobody ran it.
class CicloSorvegliato : public EventLoop {
 public:
  explicit CicloSorvegliato(EventLoop& ciclo) : ciclo_(ciclo) {}

  void esegui_eventi(Monotonic scadenza) override {
    chiudi();
    ciclo_.esegui_eventi(scadenza);
    apri();
  }
  /// A stretch begins, and ends.
  void apri() { inizio_ = orologio_.monotono(); }
  void chiudi() { massimo_ = std::max(massimo_, orologio_.monotono() - inizio_); }
  void azzera() { massimo_ = Monotonic(0); }  ///< before what is to be measured
  double massimo_ms() const { return std::chrono::duration<double, std::milli>(massimo_).count(); }

 private:
  EventLoop& ciclo_;
  QtClock orologio_;
  Monotonic inizio_{};
  Monotonic massimo_{};
};

}  // namespace lokera::bench
