#include "ledger/movimenti_in_attesa.h"

#include <algorithm>

namespace lokera {

namespace {

constexpr int prima_prova_ms = 100;
constexpr int altre_prove_ms = 1000;

}  // namespace

MovimentiInAttesa::MovimentiInAttesa(Connection& connessione, TimerFactory& timer)
    : registro_(connessione), timer_(timer.crea_timer()) {
  timer_->Evento = [this] {
    timer_->Interval(altre_prove_ms);
    (void)riprova();
  };
}

Errore MovimentiInAttesa::registra(const Movimento& movimento) {
  attese_.push_back(movimento);
  return riprova();
}

Errore MovimentiInAttesa::riprova() {
  Errore errore;
  while (!attese_.empty()) {
    const auto chiave = registro_.registra(attese_.front());
    errore = chiave.errore();
    if (errore.fallito()) break;
    const Movimento fatto = attese_.front();
    attese_.pop_front();
    if (registrato) registrato(fatto, *chiave);
  }
  avvia_timer();
  if (stato) stato(errore, attese_.empty() ? QDateTime() : attese_.front().data);
  return errore;
}

void MovimentiInAttesa::avvia_timer() {
  if (attese_.empty()) return timer_->Enabled(false);
  if (timer_->Enabled()) return;
  timer_->Interval(prima_prova_ms);
  timer_->Enabled(true);
}

// Of each key only what happened to it last.
qlonglong MovimentiInAttesa::chiavi_uscite(const QString& tessera) const {
  const auto uguali = [](const QString& a, const QString& b) {
    return a.compare(b, Qt::CaseInsensitive) == 0;
  };
  qlonglong uscite = 0;
  for (auto m = attese_.begin(); m != attese_.end(); ++m) {
    const bool sua = m->operazione == tipo_prelievo && uguali(m->operatore, tessera);
    const auto dopo = [&](const Movimento& altro) { return uguali(altro.chiave, m->chiave); };
    if (sua && std::none_of(std::next(m), attese_.end(), dopo)) ++uscite;
  }
  return uscite;
}

}  // namespace lokera
