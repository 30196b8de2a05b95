#include "supervisor/supervisore.h"

#include "forms/messaggi.h"

namespace lokera {

using namespace Qt::StringLiterals;

Supervisore::Supervisore(const Machine& macchina, Database& db, ElencoFinestre& finestre,
                         Traduttore& traduttore, ServiziGriglia& griglie)
    : principale(finestre, macchina.orologio, macchina.timer, traduttore),
      slave(macchina.socket, griglie.attesa, scambio_, principale.corrente, principale.lblStatus),
      download(macchina.socket, griglie.attesa, scambio_, principale.corrente, principale.lblLetturaTrans),
      wsk_udp(macchina.socket, griglie.attesa),
      giorno(db, macchina.orologio, traduttore),
      pannello(principale, macchina.timer, traduttore),
      in_attesa(db.connessione_db, macchina.timer),
      tabellone(principale, db, principale.corrente),
      invio(db, macchina.orologio, download, giorno, principale.corrente),
      ciclo(principale, finestre, db, macchina.timer, wsk_udp, download, giorno, invio, tabellone,
            principale.corrente, {principale.lblStatus, principale.lblStatusD, principale.lblLetturaTrans}),
      acquisizione(principale, db.connessione_db, download, tabellone, principale.corrente,
                   principale.lblLetturaTrans),
      decisioni(db, macchina.orologio, giorno, pannello, in_attesa, slave),
      fasce(db, griglie.attesa, giorno),
      accesso(principale, db, macchina.orologio, traduttore, macchina.messaggi, slave),
      menu(principale, db, finestre, traduttore, macchina.messaggi, macchina.desktop, macchina.programma),
      griglia_lokere(ciclo.grdLokere, griglie),
      griglia_agg_oper(ciclo.grdAggOper, griglie),
      lokere(db, traduttore, principale, pannello, ciclo, slave),
      partenza(macchina, db, traduttore, griglie.attesa, *this),
      traduttore_(traduttore),
      messaggi_(macchina.messaggi) {
  principale.avvia = [this] { partenza.avvia(); };
  collega_errori();
  collega_movimenti();
  collega_ciclo();
  collega_menu();
}

// Where a lower floor makes something happen on a higher one, the function is handed down here.
void Supervisore::collega_errori() {
  const auto segnala = [this](const Errore& e) { principale.segnala(e); };
  acquisizione.segnala = decisioni.segnala = ciclo.segnala = fasce.segnala = invio.segnala = segnala;
  in_attesa.stato = [this](const Errore& e, const QDateTime& dal) {
    principale.segnala_attesa(e, in_attesa.quanti(), dal);
  };
}

void Supervisore::collega_movimenti() {
  slave.richiesta = [this](QByteArray& frame) { decisioni.smista(frame); };
  in_attesa.registrato = [this](const Movimento& m, const ChiaveRegistrata& c) {
    tabellone.mostra_movimento(m, c);
  };
}

void Supervisore::collega_ciclo() {
  // What could not be done is tried again at the next tick: a band that has closed must not wait for the
  // tenth.
  ciclo.applica_fasce_orarie = [this] {
    if (!fasce.applica_fasce_orarie()) ciclo.conta_fascie = CicloDownload::tick_tra_visite - 1;
  };
}

void Supervisore::collega_menu() {
  accesso.abilita_menu = [this](bool abilitati) { menu.abilita(abilitati); };
  menu.chiudi_download = [this] { download.chiudi(); };
  menu.si_puo_finire = [this] { return si_puo_finire(); };
  menu.mnuScarTrans.Click = [this] { ciclo.mnuScarTrans_Click(); };
}

// What waits is in memory only, so it is tried once more and then asked about.
bool Supervisore::si_puo_finire() {
  return !in_attesa.riprova().fallito() ||
         conferma(traduttore_, messaggi_,
                  u"Alcuni movimenti non sono ancora registrati e andrebbero persi. Terminare ugualmente?"_s,
                  u"Fine Lavoro"_s);
}

}  // namespace lokera
