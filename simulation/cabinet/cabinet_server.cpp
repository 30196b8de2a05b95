#include "simulation/cabinet/cabinet_server.h"

#include <algorithm>

namespace lokera::simulazione {

struct CabinetServer::Connessione {
  Connessione(const std::shared_ptr<Canale>& c, const Clock& clock, TimerFactory& timer)
      : canale(c), uscita(c, clock, timer) {}
  ~Connessione() {
    canale->Arrivo = nullptr;
    canale->Caduta = nullptr;
  }
  Connessione(const Connessione&) = delete;
  Connessione& operator=(const Connessione&) = delete;

  std::shared_ptr<Canale> canale;
  Uscita uscita;
  Ricompositore pezzi;
  SessioneCabinet sessione;
};

CabinetServer::CabinetServer(Cabinet& cabinet, Rete& rete, const Clock& clock, TimerFactory& timer,
                             const Comportamento& comportamento)
    : cabinet_(cabinet),
      rete_(rete),
      clock_(clock),
      timer_(timer),
      comportamento_(comportamento),
      caso_(comportamento.seme),
      viva_(cabinet, clock, timer),
      ripresa_(timer.crea_timer()) {
  cabinet_.Riavvio = [this] { riavviato(); };
  viva_.Parla = [this](char verso, QByteArrayView frame) { parla(porta_viva, verso, frame); };
  ripresa_->Evento = [this] { ripresa(); };
}

CabinetServer::~CabinetServer() {
  cabinet_.Riavvio = nullptr;
  chiudi();
}

bool CabinetServer::apri() {
  chiudi();
  ascoltata_ = cabinet_.stato().rete_in_uso;
  cabinet_.accendi();
  aperto_ = ascolta();
  return aperto_;
}

void CabinetServer::chiudi() {
  if (!aperto_) return;
  aperto_ = false;
  in_riavvio_ = false;
  ripresa_->Enabled(false);
  chiudi_connessioni();
  smetti();
}

void CabinetServer::smetti() {
  rete_.smetti(ascoltata_.indirizzo, this);
  completo_ = false;
}

// New settings that can't be had give way to the old ones.
bool CabinetServer::ascolta() {
  StatoCabinet& stato = cabinet_.stato();
  const ReteCabinet vecchia = std::exchange(ascoltata_, stato.rete_in_uso);
  const bool ammesso = ascoltata_ == vecchia || !Ammesso || Ammesso(ascoltata_.indirizzo);
  if (ammesso && ascolta_indirizzo()) return true;
  if (ascoltata_ == vecchia) return false;
  ascoltata_ = stato.rete = stato.rete_in_uso = vecchia;
  return ascolta_indirizzo();
}

bool CabinetServer::ascolta_indirizzo() {
  const QString& indirizzo = ascoltata_.indirizzo;
  const auto comandi = [this](const std::shared_ptr<Canale>& c) { accetta(c); };
  const auto vive = [this](const std::shared_ptr<Canale>& c) { accetta_viva(c); };
  const auto arrivo = [this](QByteArrayView dati, const auto& rispondi) { datagramma(dati, rispondi); };
  const bool tcp = rete_.ascolta_tcp(indirizzo, ascoltata_.porta, comandi, this) &&
                   rete_.ascolta_tcp(indirizzo, porta_viva, vive, this);
  if (!tcp) smetti();
  completo_ = tcp && rete_.ascolta_udp(indirizzo, porta_udp, arrivo, this);
  if (completo_ || rete_.ascolta_tutti(indirizzo, porta_udp, arrivo, this)) return true;
  smetti();
  return false;
}

bool CabinetServer::respinge() {
  lasciate_.clear();
  return in_riavvio_ || caso_.per_mille(comportamento_.rifiuta);
}

void CabinetServer::accetta(const std::shared_ptr<Canale>& canale) {
  if (respinge()) return canale->chiudi();
  const auto connessione = std::make_shared<Connessione>(canale, clock_, timer_);
  connessioni_.push_back(connessione);
  const std::weak_ptr<Connessione> debole = connessione;
  canale->Arrivo = [this, debole](QByteArrayView pezzo) {
    const auto viva = debole.lock();
    if (!viva) return;
    viva->pezzi.arriva(pezzo);
    while (viva->pezzi.pronto()) frame(*viva, viva->pezzi.prendi());
  };
  canale->Caduta = [this, debole] { lascia(debole.lock().get()); };
}

void CabinetServer::accetta_viva(const std::shared_ptr<Canale>& canale) {
  if (respinge()) return canale->chiudi();
  viva_.collega(canale);
}

void CabinetServer::frame(Connessione& connessione, const QByteArray& frame) {
  if (!connessione.canale->aperto()) return;
  parla(ascoltata_.porta, '<', frame);
  const QByteArray risposta = cabinet_.comando(frame, connessione.sessione);
  if (risposta.isEmpty()) return;
  parla(ascoltata_.porta, '>', risposta);
  manda(connessione, risposta);
}

void CabinetServer::manda(Connessione& connessione, const QByteArray& risposta) {
  const int ritardo =
      comportamento_.lento_ms + (caso_.per_mille(comportamento_.ritarda) ? comportamento_.ritardo_ms : 0);
  const qsizetype meta = risposta.size() / 2;
  if (caso_.per_mille(comportamento_.cade)) {
    connessione.uscita.invia(risposta.first(meta), ritardo);
    connessione.uscita.chiudi_dopo();
  } else if (caso_.per_mille(comportamento_.spezza)) {
    connessione.uscita.invia(risposta.first(meta), ritardo);
    connessione.uscita.invia(risposta.sliced(meta), ritardo + comportamento_.pausa_ms);
  } else {
    connessione.uscita.invia(risposta, ritardo);
  }
}

void CabinetServer::datagramma(QByteArrayView dati, const std::function<void(QByteArrayView)>& rispondi) {
  if (in_riavvio_) return;
  parla(porta_udp, '<', dati);
  const QByteArray risposta = cabinet_.datagramma(dati);
  if (risposta.isEmpty()) return;
  parla(porta_udp, '>', risposta);
  rispondi(risposta);
}

void CabinetServer::lascia(const Connessione* connessione) {
  const auto una = std::ranges::find_if(connessioni_, [&](const auto& c) { return c.get() == connessione; });
  if (una == connessioni_.end()) return;
  lasciate_.push_back(*una);
  connessioni_.erase(una);
}

void CabinetServer::chiudi_connessioni() {
  viva_.scollega();
  for (const auto& connessione : connessioni_) {
    connessione->canale->chiudi();
    lasciate_.push_back(connessione);
  }
  connessioni_.clear();
}

// Listening goes on elsewhere only later: the datagram that asked for it is still being handled.
void CabinetServer::riavviato() {
  in_riavvio_ = true;
  chiudi_connessioni();
  ripresa_->Interval(std::max(1, comportamento_.riavvio_ms));
  ripresa_->Enabled(true);
}

void CabinetServer::ripresa() {
  ripresa_->Enabled(false);
  in_riavvio_ = false;
  if (!aperto_ || (completo_ && cabinet_.stato().rete_in_uso == ascoltata_)) return;
  smetti();
  aperto_ = ascolta();
}

bool CabinetServer::richiedi(const Richiesta& richiesta, const SessioneViva::AllaFine& alla_fine) {
  if (occupato()) return false;
  if (in_diretta()) return viva_.presenta(richiesta, alla_fine);
  Fine fine = Fine::rinunciata;
  if (richiesta.completa) {
    const bool fatto = cabinet_.evento(richiesta.tipo, richiesta.tessera, richiesta.chiave);
    fine = fatto ? Fine::fatta : Fine::chiave_rifiutata;
  }
  if (alla_fine) alla_fine(fine);
  return true;
}

void CabinetServer::parla(quint16 porta, char verso, QByteArrayView frame) const {
  if (Parla) Parla(porta, verso, frame);
}

}  // namespace lokera::simulazione
