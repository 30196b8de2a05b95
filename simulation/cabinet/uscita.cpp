#include "simulation/cabinet/uscita.h"

#include <algorithm>

namespace lokera::simulazione {

Uscita::Uscita(std::shared_ptr<Canale> canale, const Clock& clock, TimerFactory& timer)
    : canale_(std::move(canale)), clock_(clock), timer_factory_(timer) {}

void Uscita::invia(const QByteArray& dati, int ritardo_ms) {
  if (ritardo_ms <= 0 && coda_.empty()) return canale_->invia(dati);
  accoda({clock_.monotono() + std::chrono::milliseconds(ritardo_ms), dati});
}

void Uscita::chiudi_dopo() {
  if (coda_.empty()) return canale_->chiudi();
  accoda({clock_.monotono(), {}});
}

void Uscita::accoda(Pezzo pezzo) {
  if (!coda_.empty()) pezzo.quando = std::max(pezzo.quando, coda_.back().quando);
  coda_.push_back(std::move(pezzo));
  if (coda_.size() > 1) return;
  if (!timer_) {
    timer_ = timer_factory_.crea_timer();
    timer_->Evento = [this] { svuota(); };
  }
  svuota();
}

void Uscita::svuota() {
  timer_->Enabled(false);
  while (!coda_.empty() && coda_.front().quando <= clock_.monotono()) {
    const QByteArray dati = coda_.front().dati;
    coda_.pop_front();
    if (dati.isEmpty()) return canale_->chiudi();
    canale_->invia(dati);
  }
  if (coda_.empty()) return;
  const auto resta = std::chrono::ceil<std::chrono::milliseconds>(coda_.front().quando - clock_.monotono());
  timer_->Interval(std::max(1, static_cast<int>(resta.count())));
  timer_->Enabled(true);
}

}  // namespace lokera::simulazione
