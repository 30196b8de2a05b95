#include "supervisor/frm_main.h"

#include "access/giorno.h"

namespace lokera {

using namespace Qt::StringLiterals;

namespace {

constexpr int intervallo_orologio_ms = 30000;

const QString& release() {
  static const QString testo = u"30/11/2008"_s;
  return testo;
}

}  // namespace

frm_Main::frm_Main(ElencoFinestre& finestre, const Clock& orologio, TimerFactory& timer,
                   Traduttore& traduttore)
    : Finestra(finestre, u"frm_Main"_s),
      corrente(*this),
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
      lblTitID(*this, u"lblTitID"_s, u"lokera nr."_s),
      lblTitNome(*this, u"lblTitNome"_s, u"nome"_s),
      lblTitIndirizzo(*this, u"lblTitIndirizzo"_s, u"indirizzo IP"_s),
      lblTitModalita(*this, u"lblTitModalita"_s, u"modalità di funzionamento"_s),
      lblTitOrarioAgg(*this, u"lblTitOrarioAgg"_s, u"orario agg. tessere"_s),
      lblTitPorta(*this, u"lblTitPorta"_s, u"porta"_s),
      lblTitStato(*this, u"lblTitStato"_s, u"stato"_s),
      lblTitLettura(*this, u"lblTitLettura"_s, u"lettura transazioni"_s),
      lblTitTrans(*this, u"lblTitTrans"_s, u"transazioni lette"_s),
      lblTitUltima(*this, u"lblTitUltima"_s, u"ultima transazione"_s),
      lblTitTabellone(*this, u"lblTitTabellone"_s, u"situazione della lokera"_s),
      lblTitLegenda(*this, u"lblTitLegenda"_s, u"legenda"_s),
      lblTitLive(*this, u"lblTitLive"_s, u"pannello operazioni"_s),
      lblTitOperatore(*this, u"lblTitOperatore"_s, u"operatore"_s),
      lblTitTessera(*this, u"lblTitTessera"_s, u"codice tessera"_s),
      lblTitGruppo(*this, u"lblTitGruppo"_s, u"gruppo"_s),
      lblTitPrelievo(*this, u"lblTitPrelievo"_s, u"prelievo"_s),
      lblTitRiconsegna(*this, u"lblTitRiconsegna"_s, u"riconsegna"_s),
      lblTitEsitoSX(*this, u"lblTitEsitoSX"_s, u"esito"_s),
      lblTitEsitoDX(*this, u"lblTitEsitoDX"_s, u"esito"_s),
      lblTitAccesso(*this, u"lblTitAccesso"_s, u"Accesso"_s),
      timerOrario(timer.crea_timer()),
      orologio_(orologio),
      traduttore_(traduttore) {
  Caption(u"Lokera elettronica  -   release "_s + release());
  timerOrario->Interval(intervallo_orologio_ms);
  timerOrario->Evento = [this] { timerOrario_Timer(); };
  timerOrario->Enabled(true);
}

void frm_Main::mostra_titolo() {
  Caption(traduttore_.traduci(u"Lokera elettronica - release"_s) + u' ' + release());
}

QDate frm_Main::data_release() {
  return QDate::fromString(release(), u"dd/MM/yyyy"_s);
}

void frm_Main::timerOrario_Timer() {
  const QDateTime adesso = orologio_.adesso();
  lblOrario.Caption = traduttore_.traduci(nome_giorno(adesso.date().dayOfWeek())) + u"   "_s +
                      adesso.toString(u"dd/MM/yyyy  HH:mm"_s);
}

QString frm_Main::con_ora(const QDateTime& momento, const QString& che_cosa) const {
  return momento.toString(u"HH:mm:ss  "_s) + traduttore_.traduci(che_cosa) + u": "_s;
}

void frm_Main::segnala(const Errore& errore) {
  ultimo_errore_ = con_ora(orologio_.adesso(), u"errore di archivio"_s) + errore.descrizione;
  mostra_errori();
}

void frm_Main::segnala_attesa(const Errore& errore, qsizetype quanti, const QDateTime& dal) {
  movimenti_in_attesa_.clear();
  if (errore.fallito())
    movimenti_in_attesa_ =
        con_ora(dal, u"movimenti da registrare"_s) + QString::number(quanti) + u" - "_s + errore.descrizione;
  mostra_errori();
}

void frm_Main::mostra_errori() {
  QStringList testi = {movimenti_in_attesa_, ultimo_errore_};
  testi.removeAll(QString());
  lblErrore.Caption = testi.join(u"   "_s);
}

}  // namespace lokera
