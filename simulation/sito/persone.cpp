#include "simulation/sito/persone.h"

#include <algorithm>

namespace lokera::simulazione {

namespace {

constexpr qint64 ms_ora = 3'600'000;
constexpr Monotonic ripensa =
    std::chrono::seconds(5);  // somebody who finds the cabinet occupied or is refused

}  // namespace

quint64 seme_di(quint64 seme, quint64 indice) {
  return ((seme + 1) * 0x9E3779B97F4A7C15ULL) ^ ((indice + 1) * 0xC2B2AE3D27D4EB4FULL);
}

Persone::Persone(CabinetServer& cabinet, const Clock& clock, TimerFactory& timer, Abitudini abitudini)
    : cabinet_(cabinet),
      clock_(clock),
      abitudini_(std::move(abitudini)),
      caso_(abitudini_.seme),
      timer_(timer.crea_timer()) {
  if (abitudini_.assenza_max_ms <= 0) {
    abitudini_.assenza_min_ms = intervallo_ms() / 2;
    abitudini_.assenza_max_ms = intervallo_ms() * 6;
  }
  timer_->Evento = [this] { passo(); };
}

// Each withdrawal brings a return, so withdrawals make half of the events.
qint64 Persone::intervallo_ms() const {
  return std::max<qint64>(1, 2 * ms_ora / std::max(1, abitudini_.eventi_ora));
}

void Persone::attive(bool attive) {
  timer_->Enabled(false);
  if (!attive || abitudini_.eventi_ora <= 0) return;
  prossimo_ = fra(0, 2 * intervallo_ms());
  programma();
}

Monotonic Persone::fra(qint64 da_ms, qint64 a_ms) {
  return clock_.monotono() + std::chrono::milliseconds(caso_.fra(da_ms, std::max(da_ms, a_ms)));
}

void Persone::programma() {
  Monotonic quando = prossimo_;
  for (const InGiro& una : fuori_) quando = std::min(quando, una.ritorno);
  const auto resta = std::chrono::ceil<std::chrono::milliseconds>(quando - clock_.monotono());
  timer_->Interval(static_cast<int>(std::clamp<qint64>(resta.count(), 1, ms_ora)));
  timer_->Enabled(true);
}

void Persone::passo() {
  const Monotonic ora = clock_.monotono();
  const auto torna = std::ranges::find_if(fuori_, [ora](const InGiro& una) { return una.ritorno <= ora; });
  if (torna != fuori_.end()) {
    torna->ritorno = ora + ripensa;  // unless it succeeds
    restituisci(InGiro(*torna));
  } else if (ora >= prossimo_) {
    prossimo_ = fra(0, 2 * intervallo_ms());
    if (prelievi_) preleva();
  }
  programma();
}

std::vector<QByteArray> Persone::chiavi_dentro() const {
  std::vector<QByteArray> dentro;
  for (const auto& [codice, chiave] : cabinet_.cabinet().chiavi()) {
    if (!chiave.fuori) dentro.push_back(codice);
  }
  return dentro;
}

QByteArray Persone::tessera_a_caso() {
  const auto& note = cabinet_.cabinet().stato().operatori.record();
  const quint64 quante = abitudini_.tessere.size() + note.size();
  if (quante == 0) return {};
  const quint64 scelta = caso_.sotto(quante);
  if (scelta < abitudini_.tessere.size()) return abitudini_.tessere[scelta];
  return std::next(note.begin(), static_cast<qint64>(scelta - abitudini_.tessere.size()))->second.first(10);
}

// Mostly people want what they may have: of a few of them, the first who may have one of the keys. At a
// cabinet that decides alone the others know better than to try; what the console allows nobody knows
// beforehand.
Richiesta Persone::scegli(const std::vector<QByteArray>& chiavi) {
  const bool a_caso = caso_.per_mille(abitudini_.a_caso);
  Richiesta richiesta;
  for (int prova = 0; prova < 20; ++prova) {
    richiesta.tessera = tessera_a_caso();
    richiesta.chiave = chiavi[caso_.sotto(chiavi.size())];
    if (a_caso || cabinet_.cabinet().permette(richiesta.tessera, richiesta.chiave)) return richiesta;
  }
  if (!cabinet_.in_diretta()) richiesta.tessera.clear();
  return richiesta;
}

void Persone::preleva() {
  const std::vector<QByteArray> dentro = chiavi_dentro();
  if (dentro.empty()) return;
  Richiesta richiesta = scegli(dentro);
  if (richiesta.tessera.isEmpty()) return;
  richiesta.completa = !(cabinet_.in_diretta() && caso_.per_mille(abitudini_.rinuncia));
  tratta(richiesta);
}

void Persone::restituisci(const InGiro& una) {
  Richiesta richiesta{una.tessera, una.chiave, restituzione, true, 0, {}};
  if (caso_.per_mille(abitudini_.altra_tessera)) richiesta.tessera = tessera_a_caso();
  tratta(richiesta);
}

// Whatever way the operation ends, the key itself tells where it is.
void Persone::tratta(const Richiesta& richiesta) {
  Richiesta completa = richiesta;
  completa.pausa_ms = abitudini_.pausa_ms;
  const std::weak_ptr<bool> esiste = esiste_;
  cabinet_.richiedi(completa, [this, esiste, completa](Fine) {
    if (esiste.expired()) return;
    const auto& chiavi = cabinet_.cabinet().chiavi();
    const auto chiave = chiavi.find(completa.chiave);
    if (chiave == chiavi.end()) return;
    if (chiave->second.fuori) {
      uscita(completa);
    } else {
      rientrata(completa.chiave);
    }
    programma();
  });
}

void Persone::uscita(const Richiesta& richiesta) {
  if (richiesta.tipo != prelievo) return;
  const auto gia = std::ranges::find(fuori_, richiesta.chiave, &InGiro::chiave);
  if (gia != fuori_.end()) return;
  fuori_.push_back(
      {richiesta.chiave, richiesta.tessera, fra(abitudini_.assenza_min_ms, abitudini_.assenza_max_ms)});
}

bool Persone::rientrata(const QByteArray& chiave) {
  return std::erase_if(fuori_, [&](const InGiro& una) { return una.chiave == chiave; }) > 0;
}

}  // namespace lokera::simulazione
