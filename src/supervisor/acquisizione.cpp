#include "supervisor/acquisizione.h"

#include <utility>

#include "link/protocollo.h"
#include "store/recordset.h"

namespace lokera {

using namespace Qt::StringLiterals;

namespace {

constexpr int attesa_transazione_s = 10;

QString testo_ascii(QByteArrayView v) {
  return QString::fromLatin1(v.data(), v.size());
}

bool codice_valido(QByteArrayView codice) {
  return codice.size() == 10 && !codice.contains('.');
}

// Day/month/year, a blank, hours.minutes.seconds, from the twelve characters of the record.
QString data_ora_record(QByteArrayView frame) {
  static constexpr std::pair<int, const char*> parti[] = {{0, ""},  {2, "/"}, {4, "/"},
                                                          {6, " "}, {8, "."}, {10, "."}};
  QString testo;
  for (const auto& [n, separatore] : parti) {
    testo += QLatin1String(separatore) + testo_ascii(campo_frame(frame, 30 + n, 2));
  }
  return testo;
}

}  // namespace

Acquisizione::Acquisizione(Finestra& finestra, Database& db, TimerFactory& timer, SessioneDownload& sessione,
                           PannelloLive& pannello, Tabellone& tabellone, const LokeraCorrente& corrente,
                           Label& lblLetturaTrans)
    : lblNumTrans(finestra, u"lblNumTrans"_s),
      lblUltimaTrans(finestra, u"lblUltimaTrans"_s),
      shpTrans(finestra, u"shpTrans"_s),
      in_attesa(db, timer),
      finestra_(finestra),
      db_(db),
      registro_(db),
      sessione_(sessione),
      pannello_(pannello),
      tabellone_(tabellone),
      corrente_(corrente),
      lblLetturaTrans_(lblLetturaTrans) {
  shpTrans.Visible = false;
  in_attesa.registrato = [this](const Movimento& m, const ChiaveRegistrata& c) { mostra_lampada(m, c); };
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
  const QByteArrayView operatore = campo_frame(frame, 8, 10);
  const QByteArrayView chiave = campo_frame(frame, 18, 10);
  if (!codice_valido(operatore) || !codice_valido(chiave)) return;
  const QString data_ora = data_ora_record(frame);
  Movimento movimento;
  movimento.operatore = testo_ascii(operatore);
  movimento.chiave = testo_ascii(chiave);
  movimento.operazione = campo_frame(frame, 28, 2) == "00" ? 'P' : 'R';
  movimento.data = data_transazione(data_ora);
  Errore errore;
  movimento.intestazione = intestazione_tessera(movimento.operatore, errore);
  ChiaveRegistrata registrata;
  if (!errore.fallito()) errore = registro_.registra(movimento, registrata);
  if (errore.fallito()) {
    da_registrare_ = frame;
    if (segnala) segnala(errore);
    return;
  }
  mostra_ultima(movimento, data_ora, registrata.descrizione);
  sessione_.conferma_transazione();
}

QString Acquisizione::intestazione_tessera(const QString& codice, Errore& errore) {
  Recordset rs;
  errore = rs.Open(u"SELECT * FROM tessere_operatori WHERE codice = ?"_s, db_.connessione_db, {codice});
  if (errore.fallito() || rs.eof()) return u"Tessera non registrata"_s;
  return rs.testo(u"intestazione");
}

void Acquisizione::mostra_ultima(const Movimento& m, const QString& data_ora, const QString& descrizione) {
  const QString verso = m.operazione == 'P' ? u" OUT "_s : u" IN "_s;
  lblUltimaTrans.Caption = verso + u' ' + data_ora + u" - chiave: "_s + descrizione + u" lok. "_s +
                           corrente_.lblID.Caption() + u" - oper. "_s + m.intestazione;
  lblNumTrans.Caption = QString::number(lblNumTrans.Caption().toLongLong() + 1);
}

Errore Acquisizione::registra_movimento(char tipo, const QDateTime& adesso) {
  const bool prelievo = tipo == 'P';
  Movimento movimento;
  movimento.operatore = pannello_.lblP.Caption().left(10);
  movimento.intestazione = pannello_.lblIntestazione.Caption;
  movimento.chiave = (prelievo ? pannello_.lblSX : pannello_.lblDX).Caption().left(10);
  movimento.operazione = tipo;
  movimento.data = adesso;
  return in_attesa.registra(movimento);
}

// The board shows one cabinet, and by now perhaps another than that of the key.
void Acquisizione::mostra_lampada(const Movimento& movimento, const ChiaveRegistrata& chiave) {
  if (chiave.lokera != corrente_.id()) return;
  if (movimento.operazione == 'P')
    tabellone_.chiave_uscita(chiave.posizione);
  else
    tabellone_.chiave_presente(chiave.posizione);
}

}  // namespace lokera
