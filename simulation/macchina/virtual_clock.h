#pragma once

#include "platform/clock.h"

namespace lokera::simulazione {

/// A clock that moves only when it is told to. The calendar goes along with the monotonic side, past midnight
/// too, and can be set to any moment without touching it, as a person sets a computer's clock.
class VirtualClock : public Clock {
 public:
  explicit VirtualClock(QDateTime inizio) : regolato_(std::move(inizio)) {}

  QDateTime adesso() const override {
    const auto trascorso = std::chrono::floor<std::chrono::milliseconds>(monotono_ - regolato_a_);
    return regolato_.addMSecs(trascorso.count());
  }
  Monotonic monotono() const override { return monotono_; }

  void imposta(const QDateTime& calendario) {
    regolato_ = calendario;
    regolato_a_ = monotono_;
  }

  /// Never goes back: an earlier moment changes nothing.
  void avanza_a(Monotonic quando) { monotono_ = std::max(monotono_, quando); }

 private:
  QDateTime regolato_;
  Monotonic regolato_a_{0};
  Monotonic monotono_{0};
};

}  // namespace lokera::simulazione
