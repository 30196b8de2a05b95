#include "supervisor/frm_main.h"

#include "forms/messaggi.h"
#include "platform/momento.h"
#include "store/recordset.h"

namespace lokera {

using namespace Qt::StringLiterals;

namespace {

constexpr int intervallo_orologio_ms = 30000;
constexpr int larghezza_tabella = 9000;

/// What stands beside the values.
constexpr Didascalia didascalie[] = {
    {u"lblTitID", u"lokera nr."},
    {u"lblTitNome", u"nome"},
    {u"lblTitIndirizzo", u"indirizzo IP"},
    {u"lblTitModalita", u"modalità di funzionamento"},
    {u"lblTitOrarioAgg", u"orario agg. tessere"},
    {u"lblTitPorta", u"porta"},
    {u"lblTitStato", u"stato"},
    {u"lblTitLettura", u"lettura transazioni"},
    {u"lblTitTrans", u"transazioni lette"},
    {u"lblTitUltima", u"ultima transazione"},
    {u"lblTitTabellone", u"situazione della lokera"},
    {u"lblTitLegenda", u"legenda"},
    {u"lblTitLive", u"pannello operazioni"},
    {u"lblTitOperatore", u"operatore"},
    {u"lblTitTessera", u"codice tessera"},
    {u"lblTitGruppo", u"gruppo"},
    {u"lblTitPrelievo", u"prelievo"},
    {u"lblTitRiconsegna", u"riconsegna"},
    {u"lblTitEsitoSX", u"esito"},
    {u"lblTitEsitoDX", u"esito"},
    {u"lblTitAccesso", u"Accesso"},
};

const QString& titolo() {
  static const QString testo = u"Lokera elettronica  -   release 30/11/2008"_s;
  return testo;
}

QString con_ora(const QDateTime& momento, const QString& che_cosa) {
  return momento.toString(u"HH:mm:ss  "_s) + che_cosa + u": "_s;
}

}  // namespace

frm_Main::frm_Main(const AmbientePrincipale& a)
    : Finestra(a.finestre, u"frm_Main"_s),
      a_(a),
      attesa_(a.griglie.attesa),
      lblID(*this, u"lblID"_s),
      lblNome(*this, u"lblNome"_s),
      lblIndirizzoIP(*this, u"lblIndirizzoIP"_s, u"192.168.15.200"_s),
      lblModalità(*this, u"lblModalità"_s, u"autonomo - STAND-ALONE"_s),
      lblStatus(*this, u"lblStatus"_s, u"OFF Line"_s),
      lblStatusD(*this, u"lblStatusD"_s, u"OFF Line"_s),
      lblPorta(*this, u"lblPorta"_s, u"10002"_s),
      lblPortaD(*this, u"lblPortaD"_s, u"10001"_s),
      lblSocket(*this, u"lblSocket"_s, u"socket comun. slave"_s),
      lblSocketD(*this, u"lblSocketD"_s, u"socket transazioni"_s),
      lblLetturaTrans(*this, u"lblLetturaTrans"_s, u"waiting"_s),
      lblOrarioAgg(*this, u"lblOrarioAgg"_s, u"00.00"_s),
      lblOrario(*this, u"lblOrario"_s),
      lblErrore(*this, u"lblErrore"_s),
      didascalie_(*this, didascalie),
      slave(a.macchina.socket, attesa_, scambio_, lblID, lblIndirizzoIP, lblStatus),
      download(a.macchina.socket, attesa_, scambio_, lblIndirizzoIP, lblLetturaTrans),
      giorno(a.db, a.macchina.orologio, a.traduttore),
      pannello(*this, a.macchina.timer, a.traduttore),
      tabellone(*this, a.db, lblID),
      invio(a.db, download, giorno, lblID),
      ciclo(*this, a.finestre, a.db, a.macchina.timer, a.macchina.socket, download, giorno, invio, tabellone,
            {lblID, lblNome, lblIndirizzoIP, lblStatus, lblStatusD, lblLetturaTrans}),
      acquisizione(*this, a.db, a.macchina.timer, download, pannello, tabellone, lblID, lblLetturaTrans),
      decisioni(a.db, a.macchina.orologio, giorno, pannello, slave),
      fasce(a.db, attesa_, giorno),
      accesso(*this, a.db, a.macchina.orologio, a.traduttore, a.macchina.messaggi, *slave.wsk),
      menu(*this, a.db, a.finestre, a.traduttore, a.macchina.messaggi, a.macchina.desktop,
           a.macchina.programma),
      griglia_lokere(ciclo.grdLokere, a.griglie),
      griglia_agg_oper(ciclo.grdAggOper, a.griglie),
      timerOrario(a.macchina.timer.crea_timer()) {
  Caption(titolo());
  collega_parti();
}

// Where a lower floor makes something happen on a higher one, the function is handed down here.
void frm_Main::collega_parti() {
  const auto segnala_errore = [this](const Errore& e) { segnala(e); };
  acquisizione.segnala = decisioni.segnala = ciclo.segnala = fasce.segnala = invio.segnala = segnala_errore;
  slave.richiesta = [this](QByteArray& buffer) { decisioni.smista(buffer); };
  decisioni.registra_movimento = [this](char tipo) { return acquisizione.registra_movimento(tipo); };
  decisioni.chiavi_non_registrate = [this](const QString& tessera) {
    return acquisizione.in_attesa.chiavi_uscite(tessera);
  };
  acquisizione.in_attesa.stato = [this](const Errore& e, const QDateTime& dal) { segnala_attesa(e, dal); };
  // What could not be done is tried again at the next tick: a band that has closed must not wait for the
  // tenth.
  ciclo.applica_fasce_orarie = [this] {
    if (!fasce.applica_fasce_orarie()) ciclo.conta_fascie = CicloDownload::tick_tra_visite - 1;
  };
  accesso.abilita_menu = [this](bool abilitati) { menu.abilita(abilitati); };
  menu.chiudi_download = [this] { download.chiudi(); };
  menu.si_puo_finire = [this] { return si_puo_finire(); };
  menu.mnuScarTrans.Click = [this] { mnuScarTrans_Click(); };
  timerOrario->Interval(intervallo_orologio_ms);
  timerOrario->Evento = [this] { timerOrario_Timer(); };
  timerOrario->Enabled(true);
}

void frm_Main::Form_Load() {
  if (a_.istanza_precedente && a_.istanza_precedente()) {
    a_.macchina.messaggi.mostra(a_.traduttore.traduci(u"Programma già in esecuzione!"_s));
    a_.macchina.programma.fine();
    return;
  }
  menu.abilita(false);
  ciclo.TimerDownload->Enabled(false);
  pannello.lblP.Caption = QString();
  decisioni.stato_operazione = ' ';
  tabellone.prepara();
  if (const Errore e = attesa_blocco().riprova([this] { return prepara_archivio(); }); e.fallito()) {
    archivio_illeggibile(e);
    return;
  }
  timerOrario_Timer();
  Caption(a_.traduttore.traduci(u"Lokera elettronica - release"_s) + u' ' + titolo().right(10));
  if (Show) Show();
  if (cabinet_controllate && gestito_) slave.connessione_socket();
  ciclo.conta_fascie = CicloDownload::tick_tra_visite - 1;
  ciclo.grdLokere.Row(ciclo.grdLokere.Rows() - 1);
  ciclo.TimerDownload->Enabled(true);
  ciclo.TimerDownload_Timer();
  // With a live session the first visit, which draws the board, is minutes away.
  if (const Errore errore = tabellone.situazione_chiavi(); errore.fallito()) segnala(errore);
}

// Who has the right to write from the first reading on can't find the file taken half way. A failure to write
// that is no lock leaves the console as good as it was read.
Errore frm_Main::prepara_archivio() {
  bool letto = false;
  Errore errore = in_transazione(a_.db.connessione_db, [&]() -> Errore {
    Connection& c = a_.db.connessione_db;
    griglia_lokere.layout(c, nome(), u"grdLokere"_s, c, QString(), larghezza_tabella);
    griglia_agg_oper.layout(c, nome(), u"grdAggOper"_s, c, QString(), larghezza_tabella);
    ciclo.completa_colonne();
    cabinet_controllate = false;
    if (Errore e = leggi_lokere(); e.fallito()) return e;
    letto = true;
    for (const Errore& e : {aggiorna_database(a_.db), registra_release(), registra_computer()})
      if (e.fallito()) segnala(e);
    return {};
  });
  if (!letto || errore.classe == ClasseErrore::bloccato) return errore;
  if (errore.fallito()) segnala(errore);
  return {};
}

AttesaBlocco frm_Main::attesa_blocco() {
  return {a_.db.connessione_db, attesa_, a_.macchina.desktop, a_.traduttore};
}

// A file older than the program is brought up to date without a word: the next start finds it so.
void frm_Main::archivio_illeggibile(const Errore& errore) {
  Errore e = errore;
  if (e.classe == ClasseErrore::schema)
    e = attesa_blocco().riprova([this] { return aggiorna_database(a_.db); });
  if (e.fallito())
    a_.macchina.messaggi.mostra(a_.traduttore.traduci(u"Errore in apertura database di sistema !"_s));
  a_.macchina.programma.fine();
}

void frm_Main::trova_lokere_sistema() {
  const Errore e = leggi_lokere();
  if (e.classe == ClasseErrore::schema)
    archivio_illeggibile(e);
  else if (e.fallito())
    segnala(e);
}

// After a failure what was read before stands.
Errore frm_Main::leggi_lokere() {
  Recordset rs;
  if (Errore e = rs.Open(u"SELECT * FROM parametri where computer_ctrl = ? order by ID"_s,
                         a_.db.connessione_db, {nome_computer()});
      e.fallito())
    return e;
  pannello.modo_slave = false;
  gestito_ = false;
  lblModalità.Caption = a_.traduttore.traduci(u"autonomo - STAND-ALONE"_s);
  if (!rs.eof()) imposta_prima_lokera(rs);
  return elenca_lokere(rs);
}

void frm_Main::imposta_prima_lokera(const Recordset& rs) {
  cabinet_controllate = true;
  lblID.Caption = rs.testo(u"id");
  lblNome.Caption = rs.testo(u"descrizione");
  pannello.modo_slave = rs.numero(u"slot") == 1;
  const int attesa_inizio_ms = static_cast<int>(rs.numero(u"tempo_attesa_inizio") * 100);
  pannello.TimerSX->Interval(attesa_inizio_ms);
  pannello.TimerDX->Interval(attesa_inizio_ms);
  pannello.TimerSlot->Interval(static_cast<int>(rs.numero(u"tempo_di_comunicazione") * 2));
  a_.db.lingua_interfaccia = static_cast<qint16>(rs.numero(u"lingua"));
  if (a_.db.lingua_interfaccia == 1 && !tradotta_) {
    a_.traduttore.traduci_form(*this);
    tradotta_ = true;
  }
  lblIndirizzoIP.Caption = rs.testo(u"ip_lokera");
  const QDateTime aggiornamento = rs.valore(u"orario_aggiornamento_tessere").toDateTime();
  lblOrarioAgg.Caption = aggiornamento.isValid() ? aggiornamento.toString(u"HH:mm"_s) : QString();
  gestito_ = rs.numero(u"funzionamento") == 1;
  if (gestito_) lblModalità.Caption = a_.traduttore.traduci(u"gestito - SLAVE"_s);
}

Errore frm_Main::elenca_lokere(Recordset& rs) {
  SSOleDBGrid& lista = ciclo.grdLokere;
  Errore errore;
  lista.RemoveAll();
  while (!errore.fallito() && !rs.eof()) {
    ciclo.aggiungi_lokera(rs.testo(u"id"), rs.testo(u"descrizione"), rs.testo(u"ip_lokera"));
    errore = rs.MoveNext();
  }
  lista.Visible = lista.Rows() > 1;
  return errore;
}

Errore frm_Main::registra_release() {
  const QDateTime release = momento(QDate::fromString(titolo().right(11).trimmed(), u"dd/MM/yyyy"_s));
  return a_.db.connessione_db.Execute(
      u"update parametri set release_aggiornamento_programma = ? where computer_ctrl = ?"_s,
      {release, nome_computer()});
}

Errore frm_Main::registra_computer() {
  Recordset rs;
  if (Errore e = rs.Open(u"SELECT * FROM computers WHERE nome_computer = ?"_s, a_.db.connessione_db,
                         {nome_computer()}, Cursore::aggiornabile);
      e.fallito())
    return e;
  if (!rs.eof()) return {};
  if (Errore e = rs.AddNew(); e.fallito()) return e;
  (void)rs.imposta(u"nome_computer", nome_computer());
  (void)rs.imposta(u"nr_seriale_vidimatore", 1);
  (void)rs.imposta(u"controller_sistema", 0);
  return rs.Update();
}

void frm_Main::timerOrario_Timer() {
  const QDateTime adesso = a_.macchina.orologio.adesso();
  lblOrario.Caption = a_.traduttore.traduci(nome_giorno(adesso.date().dayOfWeek())) + u"   "_s +
                      adesso.toString(u"dd/MM/yyyy  HH:mm"_s);
}

void frm_Main::mnuScarTrans_Click() {
  ciclo.conta_tick = CicloDownload::tick_tra_visite;
  ciclo.TimerDownload_Timer();
}

void frm_Main::segnala(const Errore& errore) {
  ultimo_errore_ = con_ora(a_.macchina.orologio.adesso(), a_.traduttore.traduci(u"errore di archivio"_s)) +
                   errore.descrizione;
  mostra_errori();
}

void frm_Main::segnala_attesa(const Errore& errore, const QDateTime& dal) {
  const QString quanti = QString::number(acquisizione.in_attesa.quanti()) + u" - "_s;
  movimenti_in_attesa_.clear();
  if (errore.fallito())
    movimenti_in_attesa_ =
        con_ora(dal, a_.traduttore.traduci(u"movimenti da registrare"_s)) + quanti + errore.descrizione;
  mostra_errori();
}

void frm_Main::mostra_errori() {
  QStringList testi = {movimenti_in_attesa_, ultimo_errore_};
  testi.removeAll(QString());
  lblErrore.Caption = testi.join(u"   "_s);
}

// What waits is in memory only, so it is tried once more and then asked about.
bool frm_Main::si_puo_finire() {
  return !acquisizione.in_attesa.riprova().fallito() ||
         conferma(a_.traduttore, a_.macchina.messaggi,
                  u"Alcuni movimenti non sono ancora registrati e andrebbero persi. Terminare ugualmente?"_s,
                  u"Fine Lavoro"_s);
}

}  // namespace lokera
