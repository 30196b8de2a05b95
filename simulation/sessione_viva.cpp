#include "simulation/sessione_viva.h"

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
  fine_ = Fine::Fatta;
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
    case Stato::AttesaTessera:
      return esito_tessera(risposta);
    case Stato::AttesaChiave:
      return esito_chiave(risposta);
    case Stato::AttesaEsito:
      return esito_fine(risposta);
    case Stato::AttesaVia:
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
  chiedi(presente ? Stato::AttesaTessera : Stato::AttesaVia, "00090",
         "00" + cabinet_.stato().seriale + (presente ? "1" : "0") + dieci(richiesta_.tessera));
}

void SessioneViva::chiedi_chiave() {
  chiedi(
      Stato::AttesaChiave, "00091",
      "00" + cabinet_.stato().seriale + (richiesta_.tipo == prelievo ? "1" : "0") + dieci(richiesta_.chiave));
}

// The key's code in the echoed positions; then which movement it was and whether it was made.
void SessioneViva::riferisci(bool compiuta) {
  const char* esito = richiesta_.tipo == prelievo ? (compiuta ? "03" : "02") : (compiuta ? "01" : "00");
  chiedi(Stato::AttesaEsito, "00092", "0" + dieci(richiesta_.chiave) + "0" + esito);
}

void SessioneViva::esito_tessera(QByteArrayView risposta) {
  const QByteArray cifra = campo_frame(risposta, 8, 1).toByteArray();
  annota(cifra);
  if (cifra != "1") fine_ = Fine::TesseraRifiutata;
  prosegui(richiesta_.pausa_ms, Stato::Scelta);
}

void SessioneViva::esito_chiave(QByteArrayView risposta) {
  const QByteArray cifra = campo_frame(risposta, 8, 1).toByteArray();
  annota(cifra);
  if (cifra != "1") fine_ = Fine::ChiaveRifiutata;
  prosegui(richiesta_.pausa_ms, Stato::Mano);
}

void SessioneViva::esito_fine(QByteArrayView risposta) {
  const QByteArray cifra = campo_frame(risposta, 16, 1).toByteArray();
  annota(cifra);
  if (n_ != 0) {
    cabinet_.stato().registro.passo(n_, Passo::Risposto, cabinet_.stato().orologio.adesso(),
                                    {cifra.isEmpty() ? "-" : cifra, attesa_us_});
    if (cifra != "0") trattieni();
    n_ = 0;
  }
  mostra_tessera(false);
}

// The console does not know of this movement, or may not: the store keeps it until it is acknowledged.
void SessioneViva::trattieni() {
  cabinet_.memorizza(n_, movimento_);
  cabinet_.stato().registro.passo(n_, Passo::Memorizzato, cabinet_.stato().orologio.adesso());
}

void SessioneViva::prosegui(int ms, Stato stato) {
  stato_ = stato;
  codice_.clear();
  if (ms <= 0) return passo_compiuto();
  timer_->Interval(ms);
  timer_->Enabled(true);
}

void SessioneViva::scatto() {
  if (stato_ == Stato::Scelta || stato_ == Stato::Mano) return passo_compiuto();
  if (stato_ != Stato::Riposo) senza_risposta();
}

void SessioneViva::passo_compiuto() {
  const bool fermo = fine_ != Fine::Fatta || richiesta_.chiave.isEmpty();
  if (fermo) return mostra_tessera(false);
  if (stato_ == Stato::Scelta) return chiedi_chiave();
  if (!richiesta_.completa) {
    fine_ = Fine::Rinunciata;
    return riferisci(false);
  }
  movimento_ = cabinet_.muovi(richiesta_.tipo, dieci(richiesta_.tessera), dieci(richiesta_.chiave));
  n_ = cabinet_.stato().registro.evento(cabinet_.nome(), movimento_, Come::Diretta);
  riferisci(true);
}

void SessioneViva::senza_risposta() {
  annota("muto");
  const Stato muto = stato_;
  if (n_ != 0) {
    cabinet_.stato().registro.passo(n_, Passo::Muto, cabinet_.stato().orologio.adesso());
    trattieni();
    n_ = 0;
  } else if (fine_ == Fine::Fatta && muto != Stato::AttesaVia) {
    fine_ = Fine::Muta;
  }
  if (muto == Stato::AttesaVia) return chiudi(fine_);
  // A console that keeps silent may be waiting for the end of an operation that got lost.
  if (muto == Stato::AttesaChiave || muto == Stato::AttesaTessera) return riferisci(false);
  mostra_tessera(false);
}

void SessioneViva::caduta() {
  vecchio_ = std::exchange(canale_, nullptr);
  pezzi_ = {};
  if (stato_ == Stato::Riposo) return;
  if (!codice_.isEmpty()) annota("caduta");
  if (n_ != 0) {
    cabinet_.stato().registro.passo(n_, Passo::Muto, cabinet_.stato().orologio.adesso());
    trattieni();
  } else if (stato_ == Stato::Mano && fine_ == Fine::Fatta && richiesta_.completa) {
    movimento_ = cabinet_.muovi(richiesta_.tipo, dieci(richiesta_.tessera), dieci(richiesta_.chiave));
    n_ = cabinet_.stato().registro.evento(cabinet_.nome(), movimento_, Come::Memoria);
    cabinet_.memorizza(n_, movimento_);
  } else if (fine_ == Fine::Fatta && stato_ != Stato::AttesaVia) {
    fine_ = Fine::Caduta;
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
  stato_ = Stato::Riposo;
  codice_.clear();
  n_ = 0;
  if (const AllaFine chiama = std::exchange(alla_fine_, nullptr)) chiama(fine);
}

}  // namespace lokera::simulazione
