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
      slave_(slave) {}

Errore LokereSistema::leggi() {
  Recordset rs;
  if (Errore e = rs.Open(u"SELECT * FROM parametri where computer_ctrl = ? order by ID"_s, db_.connessione_db,
                         {slave_.nome_computer()});
      e.fallito())
    return e;
  pannello_.modo_slave = false;
  gestita_ = false;
  principale_.lblModalità.Caption = traduttore_.traduci(u"autonomo - STAND-ALONE"_s);
  if (!rs.eof()) imposta_prima(rs);
  return elenca(rs);
}

void LokereSistema::imposta_prima(const Recordset& rs) {
  LokeraCorrente& corrente = principale_.corrente;
  cabinet_controllate = true;
  corrente.lblID.Caption = rs.testo(u"id");
  corrente.lblNome.Caption = rs.testo(u"descrizione");
  pannello_.modo_slave = rs.numero(u"slot") == 1;
  const int attesa_inizio_ms = static_cast<int>(rs.numero(u"tempo_attesa_inizio") * 100);
  pannello_.TimerSX->Interval(attesa_inizio_ms);
  pannello_.TimerDX->Interval(attesa_inizio_ms);
  pannello_.TimerSlot->Interval(static_cast<int>(rs.numero(u"tempo_di_comunicazione") * 2));
  db_.lingua_interfaccia = static_cast<qint16>(rs.numero(u"lingua"));
  if (db_.lingua_interfaccia == 1 && !tradotta_) {
    traduttore_.traduci_form(principale_);
    tradotta_ = true;
  }
  // Behind the translation, which an address is no word for.
  corrente.lblIndirizzoIP.Caption = rs.testo(u"ip_lokera");
  const QDateTime aggiornamento = rs.valore(u"orario_aggiornamento_tessere").toDateTime();
  principale_.lblOrarioAgg.Caption = aggiornamento.isValid() ? aggiornamento.toString(u"HH:mm"_s) : QString();
  gestita_ = rs.numero(u"funzionamento") == 1;
  if (gestita_) principale_.lblModalità.Caption = traduttore_.traduci(u"gestito - SLAVE"_s);
}

Errore LokereSistema::elenca(Recordset& rs) {
  SSOleDBGrid& lista = ciclo_.grdLokere;
  Errore errore;
  lista.RemoveAll();
  while (!errore.fallito() && !rs.eof()) {
    ciclo_.aggiungi_lokera(rs.testo(u"id"), rs.testo(u"descrizione"), rs.testo(u"ip_lokera"));
    errore = rs.MoveNext();
  }
  lista.Visible = lista.Rows() > 1;
  return errore;
}

}  // namespace lokera
