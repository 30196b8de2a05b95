#include "supervisor/ciclo_download.h"

#include "forms/celle_nominate.h"
#include "link/porte.h"
#include "link/protocollo.h"

namespace lokera {

using namespace Qt::StringLiterals;

namespace {

constexpr int intervallo_ms = 30000;

constexpr const char16_t* colonne_lokere[] = {u"id",    u"descrizione", u"errori",
                                              u"reset", u"indirizzoIP", u"seriale"};
constexpr const char16_t* colonne_coda[] = {u"codice", u"descrizione", u"oper", u"esito"};

}  // namespace

CicloDownload::CicloDownload(Finestra& finestra, const ElencoFinestre& finestre, Database& db,
                             TimerFactory& timer, Conversazione& wsk_udp, SessioneDownload& sessione,
                             Giorno& giorno, InvioTessere& invio, Tabellone& tabellone,
                             LokeraCorrente& corrente, EtichetteCiclo etichette)
    : grdLokere(finestra, u"grdLokere"_s),
      grdAggOper(finestra, u"grdAggOper"_s),
      TimerDownload(timer.crea_timer()),
      finestre_(finestre),
      db_(db),
      wsk_udp_(wsk_udp),
      sessione_(sessione),
      giorno_(giorno),
      invio_(invio),
      tabellone_(tabellone),
      corrente_(corrente),
      e_(etichette) {
  grdLokere.Caption = u"Lokere"_s;
  grdAggOper.Caption = u"aggiornamento differito operatori"_s;
  lokera::completa_colonne(grdLokere, colonne_lokere, true);
  lokera::completa_colonne(grdAggOper, colonne_coda, true);
  TimerDownload->Interval(intervallo_ms);
  TimerDownload->Evento = [this] { TimerDownload_Timer(); };
  sessione_.tick_cambiati = [this] { accendi(); };
}

void CicloDownload::completa_colonne() {
  lokera::completa_colonne(grdLokere, colonne_lokere, false);
  lokera::completa_colonne(grdAggOper, colonne_coda, false);
}

void CicloDownload::aggiungi_lokera(const QString& id, const QString& descrizione,
                                    const QString& indirizzoIP) {
  aggiungi_riga(grdLokere, {{u"id", id},
                            {u"descrizione", descrizione},
                            {u"errori", u"0"_s},
                            {u"reset", u"0"_s},
                            {u"indirizzoIP", indirizzoIP}});
}

void CicloDownload::accendi() {
  TimerDownload->Enabled(!sessione_.tick_fermi());
}

void CicloDownload::TimerDownload_Timer() {
  conta();
  if (grdLokere.Rows() == 0) return;
  if (e_.lblStatus.Caption() == u"OFF Line"_s)
    conta_tick = tick_tra_visite;
  else if (conta_tick < tick_tra_visite)
    ++conta_tick;
  if (visita_in_corso_ || sessione_.tenuta() || finestre_.conta() > 1) return;
  if (conta_tick < tick_tra_visite) return;
  visita_in_corso_ = true;
  visita();
  visita_in_corso_ = false;
}

void CicloDownload::mnuScarTrans_Click() {
  conta_tick = tick_tra_visite;
  TimerDownload_Timer();
}

void CicloDownload::conta() {
  if (++conta_fascie < tick_tra_visite) return;
  conta_fascie = 0;
  if (applica_fasce_orarie) applica_fasce_orarie();
}

void CicloDownload::visita() {
  Visita visita;
  visita.conversazione = sessione_.prendi();
  sessione_.chiudi_e_attendi();
  if (!mia(visita)) return;
  prossima_lokera(visita);
  if (const Errore errore = tabellone_.situazione_chiavi(); errore.fallito() && segnala) segnala(errore);
  riempi_coda();
  const bool risponde = collega(visita);
  if (!mia(visita)) return;
  if (risponde) return servi(visita);
  e_.lblLetturaTrans.Caption = u"OFF line"_s;
  visita_fallita(visita);
}

// What there is to do at a cabinet that answers.
void CicloDownload::servi(const Visita& visita) {
  leggi_seriale(visita);
  if (!mia(visita)) return;
  e_.lblStatusD.Caption = u"ON line"_s;
  TimerDownload->Enabled(false);
  invia_coda(visita);
  if (mia(visita)) {
    scrivi(visita, u"errori", u"0"_s);
    conta_tick = 0;
    sessione_.chiedi_conta();
  }
  accendi();
}

void CicloDownload::prossima_lokera(Visita& visita) {
  const int ultima = grdLokere.Rows() - 1;
  grdLokere.Row(grdLokere.Row() >= ultima ? 0 : grdLokere.Row() + 1);
  visita.id = grdLokere.cella(grdLokere.Row(), u"id");
  visita.indirizzo = cella(visita, u"indirizzoIP");
  const QString nome = u"%1 (%2)"_s.arg(cella(visita, u"descrizione"), cella(visita, u"reset"));
  corrente_.porta_a(visita.id, nome, visita.indirizzo);
  e_.lblStatusD.Caption = u"OFF line"_s;
}

void CicloDownload::lascia() {
  if (visita_in_corso_ || sessione_.connessa()) sessione_.chiudi();
  e_.lblStatusD.Caption = e_.lblLetturaTrans.Caption = u"OFF line"_s;
  riempi_coda();
}

void CicloDownload::riempi_coda() {
  grdAggOper.RemoveAll();
  const auto righe = CodaTessere(db_.connessione_db).per_lokera(corrente_.id());
  if (righe.fallito() && segnala) segnala(righe.errore());
  for (const RigaCoda& r : *righe)
    aggiungi_riga(grdAggOper,
                  {{u"codice", r.tessera}, {u"descrizione", r.intestazione}, {u"oper", r.operazione}});
  grdAggOper.Row(0);
}

// Connected and answering the link test.
bool CicloDownload::collega(Visita& visita) {
  visita.conversazione = sessione_.connessione_socket_download();
  if (!mia(visita) || !sessione_.attendi_connessa(5)) return false;
  e_.lblLetturaTrans.Caption = u"Connected"_s;
  return sessione_.verifica_collegamento() == 0;
}

void CicloDownload::leggi_seriale(const Visita& visita) {
  if (!cella(visita, u"seriale").isEmpty()) return;
  sessione_.pausa(1);
  if (!mia(visita)) return;
  if (const Esito<QByteArray> seriale = sessione_.leggi_seriale(); !seriale.fallito())
    scrivi(visita, u"seriale", QString::number(seriale->toLongLong()));
}

void CicloDownload::invia_coda(const Visita& visita) {
  (void)invio_.ripeti_cancellazioni();
  if (!mia(visita)) return;
  if (grdAggOper.Rows() == 0) return;
  // A record with the bands of another day could open what today is closed: it waits for the next visit.
  const Errore senza_giorno = giorno_.tipo_giorno();
  if (senza_giorno.fallito() && segnala) segnala(senza_giorno);
  for (int riga = 0; riga < grdAggOper.Rows(); ++riga) {
    grdAggOper.Row(riga);
    const QString codice = grdAggOper.cella(riga, u"codice");
    qint32 posizione = 0;
    const bool elimina = grdAggOper.cella(riga, u"oper") == u"D"_s;
    if (senza_giorno.fallito() && !elimina) continue;
    const qint16 esito = elimina ? invio_.cancella_operatore_lokera(codice, posizione, record_operatore)
                                 : invio_.invia_record_operatore(codice, posizione, record_operatore);
    if (!mia(visita)) return;
    grdAggOper.imposta_cella(riga, u"esito", esito == 0 ? u"OK"_s : QString());
    sessione_.pausa(0);
    if (!mia(visita)) return;
  }
}

void CicloDownload::visita_fallita(const Visita& visita) {
  const qlonglong errori = cella(visita, u"errori").toLongLong() + 1;
  scrivi(visita, u"errori", QString::number(errori));
  if (errori > 1) azzera_lokera(visita);
}

void CicloDownload::azzera_lokera(const Visita& visita) {
  scrivi(visita, u"reset", QString::number(cella(visita, u"reset").toLongLong() + 1));
  wsk_udp_.chiudi();
  wsk_udp_.pausa(0);
  if (!mia(visita)) return;
  scrivi(visita, u"errori", u"0"_s);
  sessione_.svuota_ricezione();
  wsk_udp_.rivolgi(normalizza_ip(visita.indirizzo), porta_datagrammi);
  wsk_udp_.invia(componi_frame("00073"));
}

// Where the cabinet stands in the list now; -1 when it is there no longer.
int CicloDownload::riga(const Visita& visita) const {
  return riga_con(grdLokere, u"id", visita.id);
}

QString CicloDownload::cella(const Visita& visita, QStringView colonna) const {
  const int r = riga(visita);
  return r < 0 ? QString() : grdLokere.cella(r, colonna);
}

void CicloDownload::scrivi(const Visita& visita, QStringView colonna, const QString& testo) {
  if (const int r = riga(visita); r >= 0) grdLokere.imposta_cella(r, colonna, testo);
}

}  // namespace lokera
