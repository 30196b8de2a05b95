#pragma once

#include <deque>
#include <functional>
#include <memory>

#include "ledger/registro.h"
#include "platform/timer.h"

namespace lokera {

/// Live movements on their way into the book. The key has moved and nobody else knows of it, so a movement
/// that can't be booked now is kept as it was, with its moment, and tried again until it is; those that come
/// after it wait behind it. Kept in memory: the end of the program loses what waits.
class MovimentiInAttesa {
 public:
  MovimentiInAttesa(Connection& connessione, TimerFactory& timer);

  /// Books what waits, in order, and then this. A failure says that this one waits now.
  Errore registra(const Movimento& movimento);
  /// Tries at once to book what waits. The failure of the first that could not be.
  Errore riprova();

  qsizetype quanti() const { return static_cast<qsizetype>(attese_.size()); }
  /// Keys that this card has taken, as far as the book doesn't know of it yet. A waiting return gives nothing
  /// back before it is booked, but for a withdrawal that waits before it.
  qlonglong chiavi_uscite(const QString& tessera) const;

  /// A movement is in the book; must not run the loop.
  std::function<void(const Movimento&, const ChiaveRegistrata&)> registrato;
  /// After a try: nothing waits any more, or since when the oldest does and why. Must not run the loop.
  std::function<void(const Errore&, const QDateTime& dal)> stato;

 private:
  void avvia_timer();

  Registro registro_;
  std::deque<Movimento> attese_;
  std::unique_ptr<Timer> timer_;
};

}  // namespace lokera
