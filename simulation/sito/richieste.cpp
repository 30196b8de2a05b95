#include "simulation/sito/richieste.h"

#include <algorithm>

#include "simulation/sito/sito.h"

namespace lokera::simulazione {

using namespace Qt::StringLiterals;

namespace {

constexpr int riprova_ms = 10;  // while the cabinet is occupied or the console not there

const char* leggi_riga(int numero, const QList<QByteArray>& campi, std::vector<RigaRichiesta>& righe) {
  if (campi.size() < 6) return "a request has ms, cabinet, card, key, P or R, completa or rinuncia";
  bool buono = false;
  RigaRichiesta riga{campi[0].toLongLong(&buono), QString::fromLatin1(campi[1]), {}};
  if (!buono || riga.ms < 0) return "the time is a number of milliseconds";
  if (campi[2].size() != 10 || (campi[3] != "-" && campi[3].size() != 10)) return "a code has ten characters";
  if (campi[4] != "P" && campi[4] != "R") return "the direction is P or R";
  if (campi[5] != "completa" && campi[5] != "rinuncia") return "neither \"completa\" nor \"rinuncia\"";
  Richiesta& r = riga.richiesta;
  r.tessera = campi[2];
  r.chiave = campi[3] == "-" ? QByteArray() : campi[3];
  r.tipo = campi[4].at(0);
  r.completa = campi[5] == "completa";
  r.etichetta = campi.size() > 6 ? campi[6] : QByteArray::number(numero);
  righe.push_back(std::move(riga));
  return nullptr;
}

}  // namespace

QString leggi_richieste(QByteArrayView testo, std::vector<RigaRichiesta>& righe) {
  for (const auto& [numero, campi] : righe_di(testo)) {
    if (const char* motivo = leggi_riga(numero, campi, righe)) {
      return u"line %1: %2"_s.arg(numero).arg(QString::fromUtf8(motivo));
    }
  }
  return {};
}

Copione::Copione(CabinetServer& cabinet, const Clock& clock, TimerFactory& timer,
                 std::vector<RigaRichiesta> righe)
    : cabinet_(cabinet), clock_(clock), timer_(timer.crea_timer()) {
  std::ranges::stable_sort(righe, {}, &RigaRichiesta::ms);
  coda_.assign(righe.begin(), righe.end());
  timer_->Evento = [this] { passo(); };
}

void Copione::inizia() {
  inizio_ = clock_.monotono();
  programma();
}

void Copione::programma() {
  timer_->Enabled(false);
  if (coda_.empty() || in_corso_) return;
  const Monotonic quando = inizio_ + std::chrono::milliseconds(coda_.front().ms);
  const auto resta = std::chrono::ceil<std::chrono::milliseconds>(quando - clock_.monotono());
  timer_->Interval(static_cast<int>(std::clamp<qint64>(resta.count(), 1, 3'600'000)));
  timer_->Enabled(true);
}

void Copione::passo() {
  if (coda_.empty() || in_corso_) return timer_->Enabled(false);
  if (clock_.monotono() < inizio_ + std::chrono::milliseconds(coda_.front().ms)) return programma();
  const bool pronto = !cabinet_.occupato() && (!cabinet_.cabinet().gestito() || cabinet_.in_diretta());
  if (!pronto) {
    timer_->Interval(riprova_ms);
    return timer_->Enabled(true);
  }
  const Richiesta richiesta = coda_.front().richiesta;
  coda_.pop_front();
  in_corso_ = true;
  timer_->Enabled(false);
  const std::weak_ptr<bool> esiste = esiste_;
  cabinet_.richiedi(richiesta, [this, esiste](Fine) {
    if (esiste.expired()) return;
    in_corso_ = false;
    programma();
  });
}

}  // namespace lokera::simulazione
