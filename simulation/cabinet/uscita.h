#pragma once

#include <deque>
#include <memory>

#include "platform/clock.h"
#include "platform/timer.h"
#include "simulation/comune/rete.h"

namespace lokera::simulazione {

/// What goes out on one connection, each piece at its time and none before the one ahead of it.
class Uscita {
 public:
  Uscita(std::shared_ptr<Canale> canale, const Clock& clock, TimerFactory& timer);

  /// Sends after `ritardo_ms`, at once when that is 0 and nothing waits.
  void invia(const QByteArray& dati, int ritardo_ms);
  /// Closes the connection when everything has gone out.
  void chiudi_dopo();

 private:
  struct Pezzo {
    Monotonic quando;
    QByteArray dati;  ///< empty closes
  };
  void accoda(Pezzo pezzo);
  void svuota();

  std::shared_ptr<Canale> canale_;
  const Clock& clock_;
  TimerFactory& timer_factory_;
  std::unique_ptr<Timer> timer_;
  std::deque<Pezzo> coda_;
};

}  // namespace lokera::simulazione
