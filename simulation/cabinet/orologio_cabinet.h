#pragma once

#include "platform/clock.h"
#include "platform/momento.h"

namespace lokera::simulazione {

/// The cabinet's own clock: plain date and time of day, without zones or summer time. It starts with the
/// computer's time, or with 1/1/2000 00:00 when nobody has set it, and then runs by itself, so a change of
/// the computer's clock does not move it; only a setting does.
class OrologioCabinet {
 public:
  explicit OrologioCabinet(const Clock& clock, bool regolato = true) : clock_(clock) {
    regola(regolato ? clock.adesso() : momento(QDate(2000, 1, 1), QTime(0, 0)));
  }

  void regola(const QDateTime& ora) {
    base_ = ora;
    da_ = clock_.monotono();
  }

  QDateTime adesso() const {
    const auto passati = std::chrono::duration_cast<std::chrono::milliseconds>(clock_.monotono() - da_);
    return base_.addMSecs(passati.count());
  }

 private:
  const Clock& clock_;
  QDateTime base_;
  Monotonic da_{};
};

}  // namespace lokera::simulazione
