#include "supervisor/partenza.h"

#include "platform/momento.h"
#include "supervisor/supervisore.h"

namespace lokera {

using namespace Qt::StringLiterals;

namespace {

constexpr int larghezza_tabella = 9000;

}  // namespace

Partenza::Partenza(const Machine& macchina, Database& db, Traduttore& traduttore, PolledWait& attesa,
                   Supervisore& parti)
    : macchina_(macchina), db_(db), traduttore_(traduttore), attesa_(attesa), parti_(parti) {}

void Partenza::avvia() {
  if (istanza_precedente && istanza_precedente()) {
    macchina_.messaggi.mostra(traduttore_.traduci(u"Programma già in esecuzione!"_s));
    macchina_.programma.fine();
    return;
  }
  a_riposo();
  if (const Errore e = attesa_blocco().riprova([this] { return prepara_archivio(); }); e.fallito()) {
    archivio_illeggibile(e);
    return;
  }
  in_lingua();
  if (parti_.principale.Show) parti_.principale.Show();
  prime_visite();
}

void Partenza::a_riposo() {
  parti_.menu.abilita(false);
  parti_.ciclo.TimerDownload->Enabled(false);
  parti_.pannello.lblP.Caption = QString();
  parti_.decisioni.stato_operazione = ' ';
  parti_.tabellone.prepara();
}

void Partenza::prime_visite() {
  CicloDownload& ciclo = parti_.ciclo;
  if (parti_.lokere.gestita()) parti_.slave.connessione_socket();
  ciclo.conta_fascie = CicloDownload::tick_tra_visite - 1;
  ciclo.grdLokere.Row(ciclo.grdLokere.Rows() - 1);
  ciclo.accendi();
  ciclo.TimerDownload_Timer();
  disegna_tabellone();  // with a live session the first visit, which draws it, is minutes away
}

void Partenza::disegna_tabellone() {
  if (const Errore e = parti_.tabellone.situazione_chiavi(); e.fallito()) parti_.principale.segnala(e);
}

void Partenza::in_lingua() {
  parti_.principale.timerOrario_Timer();
  parti_.principale.mostra_titolo();
}

// Who has the right to write from the first reading on can't find the file taken half way. A failure to write
// that is no lock leaves the console as good as it was read.
Errore Partenza::prepara_archivio() {
  bool letto = false;
  Errore errore = in_transazione(db_.connessione_db, [&]() -> Errore {
    Connection& c = db_.connessione_db;
    const QString& nome = parti_.principale.nome();
    parti_.griglia_lokere.layout(c, nome, u"grdLokere"_s, c, QString(), larghezza_tabella);
    parti_.griglia_agg_oper.layout(c, nome, u"grdAggOper"_s, c, QString(), larghezza_tabella);
    parti_.ciclo.completa_colonne();
    if (Errore e = parti_.lokere.leggi(); e.fallito()) return e;
    letto = true;
    for (const Errore& e : {aggiorna_database(db_), registra_release(), registra_computer()})
      if (e.fallito()) parti_.principale.segnala(e);
    return {};
  });
  if (!letto || errore.classe == ClasseErrore::bloccato) return errore;
  if (errore.fallito()) parti_.principale.segnala(errore);
  return {};
}

AttesaBlocco Partenza::attesa_blocco() {
  return {db_.connessione_db, attesa_, macchina_.desktop, traduttore_};
}

// A file older than the program is brought up to date without a word: the next start finds it so.
void Partenza::archivio_illeggibile(const Errore& errore) {
  Errore e = errore;
  if (e.classe == ClasseErrore::schema)
    e = attesa_blocco().riprova([this] { return aggiorna_database(db_); });
  if (e.fallito())
    macchina_.messaggi.mostra(traduttore_.traduci(u"Errore in apertura database di sistema !"_s));
  macchina_.programma.fine();
}

void Partenza::trova_lokere_sistema() {
  const LokeraCorrente& corrente = parti_.principale.corrente;
  const qlonglong prima = corrente.id();
  const QString indirizzo = corrente.indirizzo();
  const Errore e = parti_.lokere.leggi();
  if (e.classe == ClasseErrore::schema) return archivio_illeggibile(e);
  if (e.fallito()) return parti_.principale.segnala(e);
  if (corrente.id() != prima || corrente.indirizzo() != indirizzo) parti_.ciclo.lascia();
  in_lingua();
  disegna_tabellone();
}

Errore Partenza::registra_release() {
  return db_.connessione_db.Execute(
      u"update parametri set release_aggiornamento_programma = ? where computer_ctrl = ?"_s,
      {momento(frm_Main::data_release()), parti_.slave.nome_computer()});
}

Errore Partenza::registra_computer() {
  const QString nome_computer = parti_.slave.nome_computer();
  Recordset rs;
  if (Errore e = rs.Open(u"SELECT * FROM computers WHERE nome_computer = ?"_s, db_.connessione_db,
                         {nome_computer}, Cursore::aggiornabile);
      e.fallito())
    return e;
  if (!rs.eof()) return {};
  if (Errore e = rs.AddNew(); e.fallito()) return e;
  (void)rs.imposta(u"nome_computer", nome_computer);
  (void)rs.imposta(u"nr_seriale_vidimatore", 1);
  (void)rs.imposta(u"controller_sistema", 0);
  return rs.Update();
}

}  // namespace lokera
