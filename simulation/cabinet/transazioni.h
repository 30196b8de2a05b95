#pragma once

#include <QByteArray>

#include <deque>

#include "simulation/cabinet/movimento_chiave.h"

namespace lokera::simulazione {

/// One stored transaction; `n` is its number in the ledger.
struct TransazioneMemorizzata {
  quint64 n = 0;
  MovimentoChiave movimento;
};

/// The store of a cabinet, first in first out. It never drops what was not acknowledged.
class Transazioni {
 public:
  explicit Transazioni(int limite) : limite_(limite) {}

  bool piena() const { return numero() >= limite_; }
  void aggiungi(TransazioneMemorizzata t) { coda_.push_back(std::move(t)); }
  /// Nothing when the store is empty; valid until the next change.
  const TransazioneMemorizzata* prima() const { return coda_.empty() ? nullptr : &coda_.front(); }
  void togli_prima() { coda_.pop_front(); }
  int numero() const { return static_cast<int>(coda_.size()); }

 private:
  std::deque<TransazioneMemorizzata> coda_;
  int limite_;
};

/// Codes, movement and moment as they stand in the reply, 34 characters. A code that is no ten characters is
/// filled up with ".", by which the console knows that there is none.
QByteArray testo_transazione(const MovimentoChiave& movimento);

}  // namespace lokera::simulazione
