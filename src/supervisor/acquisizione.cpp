#include "supervisor/acquisizione.h"

#include <utility>

#include "ledger/record_transazione.h"
#include "platform/campo_frame.h"

namespace lokera {

using namespace Qt::StringLiterals;

namespace {

constexpr int attesa_transazione_s = 10;

// Day/month/year, a blank, hours.minutes.seconds, from the twelve characters of the record.
QString data_ora_record(QByteArrayView frame) {
  static constexpr std::pair<int, const char*> parti[] = {{0, ""},  {2, "/"}, {4, "/"},
                                                          {6, " "}, {8, "."}, {10, "."}};
  QString testo;
  for (const auto& [n, separatore] : parti) {
    const QByteArrayView cifre = campo_frame(frame, record_del_cabinet.momento + n, 2);
    testo += QLatin1String(separatore) + QLatin1String(cifre.data(), cifre.size());
  }
  return testo;
}

}  // namespace

Acquisizione::Acquisizione(Finestra& finestra, Connection& connessione, SessioneDownload& sessione,
                           Tabellone& tabellone, const LokeraCorrente& corrente, Label& lblLetturaTrans)
    : lblNumTrans(finestra, u"lblNumTrans"_s),
      lblUltimaTrans(finestra, u"lblUltimaTrans"_s),
      shpTrans(finestra, u"shpTrans"_s),
      finestra_(finestra),
      registro_(connessione),
      sessione_(sessione),
      tabellone_(tabellone),
      corrente_(corrente),
      lblLetturaTrans_(lblLetturaTrans) {
  shpTrans.Visible = false;
  sessione_.leggi_transazioni = [this](qint16 n) { leggi_transazioni(n); };
  sessione_.acquisisci_transazione = [this](const QByteArray& frame) { acquisisci_transazione(frame); };
}

void Acquisizione::leggi_transazioni(qint16 numero) {
  const int conversazione = sessione_.numero_connessione();
  if (lettura_di_ == conversazione) return;
  if (numero == 0) {
    lblLetturaTrans_.Caption = u"no data"_s;
    return;
  }
  const int precedente = std::exchange(lettura_di_, conversazione);
  shpTrans.Visible = true;
  finestra_.Enabled(false);
  lblLetturaTrans_.Caption = u"record read: "_s + QString::number(numero);
  leggi_uno_alla_volta(numero);
  lettura_di_ = precedente;
  finestra_.Enabled(true);
  shpTrans.Visible = false;
  // Whoever has the session now draws the cabinet that he is at.
  if (!sessione_.in_corso(conversazione)) return;
  if (const Errore errore = tabellone_.situazione_chiavi(); errore.fallito() && segnala) segnala(errore);
}

// When the cycle has moved on to another cabinet, or a window has taken the session, what is left waits in
// this one for the next visit.
void Acquisizione::leggi_uno_alla_volta(qint16 numero) {
  for (int i = 1; i <= numero; ++i) {
    if (!leggi_uno()) return;
  }
}

// A record that meets a locked file is tried again with each second of its limit: the cabinet keeps it, but
// the person at the desk should not wait for the next visit.
bool Acquisizione::leggi_uno() {
  const int conversazione = sessione_.numero_connessione();
  da_registrare_.clear();
  sessione_.chiedi_transazione();
  for (int secondi = 0; secondi <= attesa_transazione_s; ++secondi) {
    if (sessione_.attendi_conferma(0)) return true;
    if (!sessione_.in_corso(conversazione)) return false;
    if (!da_registrare_.isEmpty()) acquisisci_transazione(std::exchange(da_registrare_, {}));
  }
  return false;
}

void Acquisizione::acquisisci_transazione(const QByteArray& frame) {
  Movimento movimento = record_transazione(frame, record_del_cabinet);
  if (!codice_valido(movimento.operatore) || !codice_valido(movimento.chiave)) return;
  const auto chiave = registra(movimento);
  if (chiave.fallito()) {
    da_registrare_ = frame;
    if (segnala) segnala(chiave.errore());
    return;
  }
  mostra_ultima(movimento, data_ora_record(frame), chiave->descrizione);
  sessione_.conferma_transazione();
}

Esito<ChiaveRegistrata> Acquisizione::registra(Movimento& movimento) {
  const auto intestazione = registro_.intestazione(movimento.operatore);
  if (intestazione.fallito()) return intestazione.errore();
  movimento.intestazione = *intestazione;
  return registro_.registra(movimento);
}

void Acquisizione::mostra_ultima(const Movimento& m, const QString& data_ora, const QString& descrizione) {
  const QString verso = m.operazione == tipo_prelievo ? u" OUT "_s : u" IN "_s;
  lblUltimaTrans.Caption = verso + u' ' + data_ora + u" - chiave: "_s + descrizione + u" lok. "_s +
                           corrente_.lblID.Caption() + u" - oper. "_s + m.intestazione;
  lblNumTrans.Caption = QString::number(lblNumTrans.Caption().toLongLong() + 1);
}

}  // namespace lokera
