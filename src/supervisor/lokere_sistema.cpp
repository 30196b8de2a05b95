#include "supervisor/lokere_sistema.h"

namespace lokera {

using namespace Qt::StringLiterals;

LokereSistema::LokereSistema(Database& db, Traduttore& traduttore, frm_Main& principale,
                             PannelloLive& pannello, CicloDownload& ciclo, const SessioneSlave& slave)
    : db_(db),
      traduttore_(traduttore),
      principale_(principale),
      pannello_(pannello),
      ciclo_(ciclo),
      slave_(slave) {
  for (Controllo* c : principale.Controls())
    if (auto* label = dynamic_cast<Label*>(c); label && label->Caption().isEmpty()) dati_.push_back(label);
}

Errore LokereSistema::leggi() {
  Recordset rs;
  if (Errore e = rs.Open(u"SELECT * FROM parametri where computer_ctrl = ? order by ID"_s, db_.connessione_db,
                         {slave_.nome_computer()});
      e.fallito())
    return e;
  pannello_.modo_slave = false;
  gestita_ = false;
  rs.eof() ? nessuna() : imposta_prima(rs);
  principale_.lblModalità.Caption =
      traduttore_.traduci(gestita_ ? u"gestito - SLAVE"_s : u"autonomo - STAND-ALONE"_s);
  return elenca(rs);
}

void LokereSistema::nessuna() {
  principale_.corrente.porta_a({}, {}, {});
  principale_.lblOrarioAgg.Caption = QString();
  principale_.lblNessunaLokera.Caption =
      traduttore_.traduci(u"Nessuna lokera assegnata a questo computer"_s) +
      u" (%1): "_s.arg(slave_.nome_computer()) + traduttore_.traduci(u"menu Tabelle, Parametri Sistema"_s);
}

void LokereSistema::imposta_prima(const Recordset& rs) {
  pannello_.modo_slave = rs.numero(u"slot") == 1;
  const int attesa_inizio_ms = static_cast<int>(rs.numero(u"tempo_attesa_inizio") * 100);
  pannello_.TimerSX->Interval(attesa_inizio_ms);
  pannello_.TimerDX->Interval(attesa_inizio_ms);
  pannello_.TimerSlot->Interval(static_cast<int>(rs.numero(u"tempo_di_comunicazione") * 2));
  db_.lingua_interfaccia = static_cast<qint16>(rs.numero(u"lingua"));
  if (db_.lingua_interfaccia == 1 && !tradotta_) traduci_principale();
  // Behind the translation: a name and an address are no words for it.
  principale_.corrente.porta_a(rs.testo(u"id"), rs.testo(u"descrizione"), rs.testo(u"ip_lokera"));
  const QDateTime aggiornamento = rs.valore(u"orario_aggiornamento_tessere").toDateTime();
  principale_.lblOrarioAgg.Caption = aggiornamento.isValid() ? aggiornamento.toString(u"HH:mm"_s) : QString();
  gestita_ = rs.numero(u"funzionamento") == 1;
}

// In the middle of the day the window holds data, which would get into the table of the words.
void LokereSistema::traduci_principale() {
  principale_.corrente.lblIndirizzoIP.Caption = QString();
  QStringList valori;
  for (Label* l : dati_) {
    valori += l->Caption();
    l->Caption = QString();
  }
  traduttore_.traduci_form(principale_);
  for (Label* l : dati_) l->Caption = valori.takeFirst();
  tradotta_ = true;
}

Errore LokereSistema::elenca(Recordset& rs) {
  SSOleDBGrid& lista = ciclo_.grdLokere;
  Errore errore;
  lista.RemoveAll();
  while (!errore.fallito() && !rs.eof()) {
    ciclo_.aggiungi_lokera(rs.testo(u"id"), rs.testo(u"descrizione"), rs.testo(u"ip_lokera"));
    errore = rs.MoveNext();
  }
  lista.Row(0);  // the current one
  lista.Visible = lista.Rows() > 1;
  principale_.lblNessunaLokera.Visible = !cabinet_controllate();
  return errore;
}

}  // namespace lokera
