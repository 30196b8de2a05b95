#include "simulation/cabinet/sessione_viva.h"

#include <utility>

#include "link/protocollo.h"

namespace lokera::simulazione {

namespace {

QByteArray dieci(const QByteArray& codice) {
  return codice.leftJustified(10, '.', true);
}

}  // namespace

SessioneViva::SessioneViva(Cabinet& cabinet, const Clock& clock, TimerFactory& timer)
    : cabinet_(cabinet), clock_(clock), timer_(timer.crea_timer()) {
  timer_->Evento = [this] {
    timer_->Enabled(false);
    scatto();
  };
}

SessioneViva::~SessioneViva() {
  lascia_canali();
}

void SessioneViva::collega(std::shared_ptr<Canale> canale) {
  scollega();
  canale_ = std::move(canale);
  const Canale* questo = canale_.get();
  canale_->Arrivo = [this, questo](QByteArrayView pezzo) {
    if (canale_.get() == questo) arrivo(pezzo);
  };
  canale_->Caduta = [this, questo] {
    if (canale_.get() == questo) caduta();
  };
}

void SessioneViva::scollega() {
  if (!canale_) return;
  canale_->chiudi();
  caduta();
}

void SessioneViva::lascia_canali() {
  for (const auto& canale : {canale_, vecchio_}) {
    if (!canale) continue;
    canale->Arrivo = nullptr;
    canale->Caduta = nullptr;
    canale->chiudi();
  }
}

bool SessioneViva::presenta(Richiesta richiesta, AllaFine alla_fine) {
  if (!viva() || !libera()) return false;
  richiesta_ = std::move(richiesta);
  alla_fine_ = std::move(alla_fine);
  fine_ = Fine::fatta;
  n_ = 0;
  mostra_tessera(true);
  return true;
}

void SessioneViva::arrivo(QByteArrayView pezzo) {
  pezzi_.arriva(pezzo);
  while (pezzi_.pronto()) frame(pezzi_.prendi());
}

// Only the answer that is waited for counts, and only whole: one that comes after its limit finds another
// state, and a grant never comes out of a garbled one.
void SessioneViva::frame(const QByteArray& frame) {
  if (Parla) Parla('<', frame);
  if (codice_.isEmpty() || frame.size() < 8 || codice_comando(frame) != codice_) return;
  const QByteArrayView risposta = QByteArrayView(frame).chopped(3);
  if (calcola_bcc(risposta) != campo_frame(frame, frame.size() - 2, 2)) return;
  timer_->Enabled(false);
  switch (stato_) {
    case Stato::attesa_tessera:
      return esito_tessera(risposta);
    case Stato::attesa_chiave:
      return esito_chiave(risposta);
    case Stato::attesa_esito:
      return esito_fine(risposta);
    case Stato::attesa_via:
      annota(campo_frame(risposta, 8, 1).toByteArray());
      return chiudi(fine_);
    default:
      return;
  }
}

void SessioneViva::chiedi(Stato stato, const QByteArray& codice, const QByteArray& testo) {
  stato_ = stato;
  codice_ = codice;
  inviato_ = codice + testo;
  inviato_a_ = clock_.monotono();
  timer_->Interval(attesa_ms);
  timer_->Enabled(true);
  const QByteArray frame = componi_frame(inviato_);
  if (Parla) Parla('>', frame);
  const std::shared_ptr<Canale> canale = canale_;
  if (canale) canale->invia(frame);
}

void SessioneViva::mostra_tessera(bool presente) {
  chiedi(presente ? Stato::attesa_tessera : Stato::attesa_via, "00090",
         "00" + cabinet_.stato().seriale + (presente ? "1" : "0") + dieci(richiesta_.tessera));
}

void SessioneViva::chiedi_chiave() {
  chiedi(
      Stato::attesa_chiave, "00091",
      "00" + cabinet_.stato().seriale + (richiesta_.tipo == prelievo ? "1" : "0") + dieci(richiesta_.chiave));
}

// The key's code in the echoed positions; then which movement it was and whether it was made.
void SessioneViva::riferisci(bool compiuta) {
  const char* esito = richiesta_.tipo == prelievo ? (compiuta ? "03" : "02") : (compiuta ? "01" : "00");
  chiedi(Stato::attesa_esito, "00092", "0" + dieci(richiesta_.chiave) + "0" + esito);
}

void SessioneViva::esito_tessera(QByteArrayView risposta) {
  const QByteArray cifra = campo_frame(risposta, 8, 1).toByteArray();
  annota(cifra);
  if (cifra != "1") fine_ = Fine::tessera_rifiutata;
  prosegui(richiesta_.pausa_ms, Stato::scelta);
}

void SessioneViva::esito_chiave(QByteArrayView risposta) {
  const QByteArray cifra = campo_frame(risposta, 8, 1).toByteArray();
  annota(cifra);
  if (cifra != "1") fine_ = Fine::chiave_rifiutata;
  prosegui(richiesta_.pausa_ms, Stato::mano);
}

void SessioneViva::esito_fine(QByteArrayView risposta) {
  const QByteArray cifra = campo_frame(risposta, 16, 1).toByteArray();
  annota(cifra);
  if (n_ != 0) {
    cabinet_.stato().registro.passo(n_, PassoMovimento::risposto, cabinet_.stato().orologio.adesso(),
                                    {cifra.isEmpty() ? "-" : cifra, attesa_us_});
    if (cifra != "0") trattieni();
    n_ = 0;
  }
  mostra_tessera(false);
}

// The console does not know of this movement, or may not: the store keeps it until it is acknowledged.
void SessioneViva::trattieni() {
  cabinet_.memorizza(n_, movimento_);
  cabinet_.stato().registro.passo(n_, PassoMovimento::memorizzato, cabinet_.stato().orologio.adesso());
}

void SessioneViva::prosegui(int ms, Stato stato) {
  stato_ = stato;
  codice_.clear();
  if (ms <= 0) return passo_compiuto();
  timer_->Interval(ms);
  timer_->Enabled(true);
}

void SessioneViva::scatto() {
  if (stato_ == Stato::scelta || stato_ == Stato::mano) return passo_compiuto();
  if (stato_ != Stato::riposo) senza_risposta();
}

void SessioneViva::passo_compiuto() {
  const bool fermo = fine_ != Fine::fatta || richiesta_.chiave.isEmpty();
  if (fermo) return mostra_tessera(false);
  if (stato_ == Stato::scelta) return chiedi_chiave();
  if (!richiesta_.completa) {
    fine_ = Fine::rinunciata;
    return riferisci(false);
  }
  movimento_ = cabinet_.muovi(richiesta_.tipo, dieci(richiesta_.tessera), dieci(richiesta_.chiave));
  n_ = cabinet_.stato().registro.evento(cabinet_.nome(), movimento_, Come::diretta);
  riferisci(true);
}

void SessioneViva::senza_risposta() {
  annota("muto");
  const Stato muto = stato_;
  if (n_ != 0) {
    cabinet_.stato().registro.passo(n_, PassoMovimento::muto, cabinet_.stato().orologio.adesso());
    trattieni();
    n_ = 0;
  } else if (fine_ == Fine::fatta && muto != Stato::attesa_via) {
    fine_ = Fine::muta;
  }
  if (muto == Stato::attesa_via) return chiudi(fine_);
  // A console that keeps silent may be waiting for the end of an operation that got lost.
  if (muto == Stato::attesa_chiave || muto == Stato::attesa_tessera) return riferisci(false);
  mostra_tessera(false);
}

void SessioneViva::caduta() {
  vecchio_ = std::exchange(canale_, nullptr);
  pezzi_ = {};
  if (stato_ == Stato::riposo) return;
  if (!codice_.isEmpty()) annota("caduta");
  if (n_ != 0) {
    cabinet_.stato().registro.passo(n_, PassoMovimento::muto, cabinet_.stato().orologio.adesso());
    trattieni();
  } else if (stato_ == Stato::mano && fine_ == Fine::fatta && richiesta_.completa) {
    movimento_ = cabinet_.muovi(richiesta_.tipo, dieci(richiesta_.tessera), dieci(richiesta_.chiave));
    n_ = cabinet_.stato().registro.evento(cabinet_.nome(), movimento_, Come::memoria);
    cabinet_.memorizza(n_, movimento_);
  } else if (fine_ == Fine::fatta && stato_ != Stato::attesa_via) {
    fine_ = Fine::caduta;
  }
  chiudi(fine_);
}

void SessioneViva::annota(const QByteArray& risposta) {
  const auto us = std::chrono::duration_cast<std::chrono::microseconds>(clock_.monotono() - inviato_a_);
  attesa_us_ = QByteArray::number(static_cast<qint64>(us.count()));
  cabinet_.stato().registro.richiesta(
      cabinet_.nome(), cabinet_.stato().orologio.adesso(),
      {codice_, inviato_.mid(5), risposta.isEmpty() ? "-" : risposta, attesa_us_, richiesta_.etichetta});
}

void SessioneViva::chiudi(Fine fine) {
  timer_->Enabled(false);
  stato_ = Stato::riposo;
  codice_.clear();
  n_ = 0;
  if (const AllaFine chiama = std::exchange(alla_fine_, nullptr)) chiama(fine);
}

}  // namespace lokera::simulazione
