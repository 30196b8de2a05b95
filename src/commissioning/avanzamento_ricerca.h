#pragma once

#include <memory>

#include "forms/controlli.h"
#include "forms/traduttore.h"
#include "platform/clock.h"
#include "platform/timer.h"

namespace lokera {

/// What a person sees of a search while it runs: what is being done, how many have answered, a bar over the
/// time in which answers are taken.
class AvanzamentoRicerca {
 public:
  AvanzamentoRicerca(Finestra& finestra, const Clock& orologio, TimerFactory& timer, Traduttore& traduttore);

  void inizia();
  void risposta();  ///< one more cabinet has answered
  /// Answers are in; from now on the cabinets are read one after the other.
  void legge(const QString& indirizzo);
  void fine();  ///< the count stays until the next search

  Label lblSearch;
  ProgressBar pgbRicerca;
  Label lblRisposte;

 private:
  void conta();

  const Clock& orologio_;
  Traduttore& traduttore_;
  std::unique_ptr<Timer> timer_;
  Monotonic inizio_{};
  int risposte_ = 0;
};

}  // namespace lokera
