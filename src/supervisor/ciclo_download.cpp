#include "supervisor/ciclo_download.h"

#include "link/protocollo.h"

namespace lokera {

namespace {

constexpr int intervallo_ms = 30000;
constexpr quint16 porta_udp = 3040;

// The columns that the cycle keeps its state in, whatever the layout table shows of them.
void disegna(SSOleDBGrid& grd, std::initializer_list<const char16_t*> campi) {
  std::vector<Colonna> colonne;
  for (const char16_t* campo : campi) {
    Colonna colonna;
    colonna.campo = colonna.Caption = QString::fromUtf16(campo);
    colonne.push_back(colonna);
  }
  grd.imposta_colonne(std::move(colonne));
}

}  // namespace

CicloDownload::CicloDownload(Finestra& finestra, const ElencoFinestre& finestre, Database& db,
                             TimerFactory& timer, WinsockFactory& socket, SessioneDownload& sessione,
                             Giorno& giorno, InvioTessere& invio, Tabellone& tabellone,
                             EtichetteCiclo etichette)
    : grdLokere(finestra, QStringLiteral("grdLokere")),
      grdAggOper(finestra, QStringLiteral("grdAggOper")),
      TimerDownload(timer.crea_timer()),
      wsk_udp(socket.crea_winsock()),
      finestre_(finestre),
      db_(db),
      sessione_(sessione),
      giorno_(giorno),
      invio_(invio),
      tabellone_(tabellone),
      e_(etichette) {
  grdLokere.Caption = QStringLiteral("Lokere");
  grdAggOper.Caption = QStringLiteral("aggiornamento differito operatori");
  disegna(grdLokere, {u"id", u"descrizione", u"errori", u"reset", u"indirizzoIP", u"seriale"});
  disegna(grdAggOper, {u"codice", u"descrizione", u"oper", u"esito"});
  TimerDownload->Interval(intervallo_ms);
  TimerDownload->Evento = [this] { TimerDownload_Timer(); };
}

void CicloDownload::TimerDownload_Timer() {
  conta();
  if (grdLokere.Rows() == 0) return;
  if (e_.lblStatus.Caption() == QStringLiteral("OFF Line"))
    conta_tick = tick_tra_visite;
  else
    ++conta_tick;
  if (visita_in_corso_ || finestre_.conta() > 1 || conta_tick < tick_tra_visite) return;
  visita_in_corso_ = true;
  visita();
  visita_in_corso_ = false;
}

void CicloDownload::conta() {
  if (++conta_fascie < tick_tra_visite) return;
  conta_fascie = 0;
  if (applica_fasce_orarie) applica_fasce_orarie();
}

void CicloDownload::visita() {
  sessione_.chiudi_e_attendi();
  prossima_lokera();
  if (const Errore errore = tabellone_.situazione_chiavi(); errore && segnala) segnala(errore);
  riempi_coda();
  if (!collega()) {
    e_.lblLetturaTrans.Caption = QStringLiteral("OFF line");
    visita_fallita();
    return;
  }
  leggi_seriale();
  e_.lblStatusD.Caption = QStringLiteral("ON line");
  TimerDownload->Enabled(false);
  invia_coda();
  scrivi(u"errori", QStringLiteral("0"));
  conta_tick = 0;
  sessione_.wskDownload->SendData(frame_conta_transazioni);
  TimerDownload->Enabled(true);
}

void CicloDownload::prossima_lokera() {
  const int ultima = grdLokere.Rows() - 1;
  grdLokere.Row(grdLokere.Row() >= ultima ? 0 : grdLokere.Row() + 1);
  const int riga = grdLokere.Row();
  e_.lblID.Caption = grdLokere.cella(riga, u"id");
  e_.lblNome.Caption =
      QStringLiteral("%1 (%2)").arg(grdLokere.cella(riga, u"descrizione"), grdLokere.cella(riga, u"reset"));
  e_.lblIndirizzoIP.Caption = grdLokere.cella(riga, u"indirizzoIP");
  e_.lblStatusD.Caption = QStringLiteral("OFF line");
}

void CicloDownload::riempi_coda() {
  grdAggOper.RemoveAll();
  std::vector<RigaCoda> righe;
  const Errore errore = CodaTessere(db_.connessione_db).per_lokera(e_.lblID.Caption().toLongLong(), righe);
  if (errore && segnala) segnala(errore);
  for (const RigaCoda& r : righe)
    grdAggOper.AddItem(QStringList{r.tessera, r.intestazione, r.operazione, QString()});
  grdAggOper.Row(0);
}

// Connected and answering the link test.
bool CicloDownload::collega() {
  sessione_.connessione_socket_download();
  if (!sessione_.attesa().attendi(5, [this] { return sessione_.connessa(); })) return false;
  e_.lblLetturaTrans.Caption = QStringLiteral("Connected");
  return sessione_.verifica_collegamento() == 0;
}

void CicloDownload::leggi_seriale() {
  if (!grdLokere.cella(grdLokere.Row(), u"seriale").isEmpty()) return;
  Scambio& scambio = sessione_.scambio();
  sessione_.attesa().attendi_oltre(1);
  scambio.buffer_download.clear();
  sessione_.wskDownload->SendData(componi_frame("0001B"));
  sessione_.attesa().attendi(1, [&scambio] { return !scambio.buffer_download.isEmpty(); });
  if (!risposta_buona(scambio.buffer_download)) return;
  bool numerico = false;
  const qlonglong seriale = campo_frame(scambio.buffer_download, 8, 10).toByteArray().toLongLong(&numerico);
  if (numerico) scrivi(u"seriale", QString::number(seriale));
}

void CicloDownload::invia_coda() {
  (void)invio_.ripeti_cancellazioni();
  if (grdAggOper.Rows() == 0) return;
  (void)giorno_.tipo_giorno();
  for (int riga = 0; riga < grdAggOper.Rows(); ++riga) {
    grdAggOper.Row(riga);
    const QString codice = grdAggOper.cella(riga, u"codice");
    qint32 posizione = 0;
    const bool elimina = grdAggOper.cella(riga, u"oper") == QStringLiteral("D");
    const qint16 esito = elimina ? invio_.cancella_operatore_lokera(codice, posizione, record_operatore)
                                 : invio_.invia_record_operatore(codice, posizione, record_operatore);
    grdAggOper.imposta_cella(riga, u"esito", esito == 0 ? QStringLiteral("OK") : QString());
    sessione_.attesa().attendi_oltre(0);
  }
}

void CicloDownload::visita_fallita() {
  scrivi(u"errori", QString::number(valore(u"errori") + 1));
  if (valore(u"errori") > 1) azzera_lokera();
}

void CicloDownload::azzera_lokera() {
  scrivi(u"reset", QString::number(valore(u"reset") + 1));
  wsk_udp->Close();
  sessione_.attesa().attendi_oltre(0);
  scrivi(u"errori", QStringLiteral("0"));
  sessione_.scambio().buffer_ricezione.clear();
  wsk_udp->Protocol(Protocol::udp);
  wsk_udp->RemoteHost(normalizza_ip(e_.lblIndirizzoIP.Caption));
  wsk_udp->RemotePort(porta_udp);
  wsk_udp->SendData(componi_frame("00073"));
}

qlonglong CicloDownload::valore(QStringView colonna) const {
  return grdLokere.cella(grdLokere.Row(), colonna).toLongLong();
}

void CicloDownload::scrivi(QStringView colonna, const QString& testo) {
  grdLokere.imposta_cella(grdLokere.Row(), colonna, testo);
}

}  // namespace lokera
