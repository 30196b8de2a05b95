#include "supervisor/frm_main.h"

#include "access/giorno.h"

namespace lokera {

using namespace Qt::StringLiterals;

namespace {

constexpr int intervallo_orologio_ms = 30000;

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
      lblNessunaLokera(*this, u"lblNessunaLokera"_s),
      lblErrore(*this, u"lblErrore"_s),
      didascalie_(*this, didascalie),
      timerOrario(timer.crea_timer()),
      orologio_(orologio),
      traduttore_(traduttore) {
  Caption(u"Lokera elettronica  -   release "_s + release());
  lblNessunaLokera.Visible = false;
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
