#include "commissioning/frm_param_lokere.h"

#include "forms/messaggi.h"
#include "forms/prepara_liste.h"

namespace lokera {

using namespace Qt::StringLiterals;

namespace {

constexpr auto porta_di_fabbrica = u"10001";

constexpr Didascalia didascalie[] = {
    {u"lblNumero", u"numero lokera"},
    {u"lblDescrizione", u"descrizione"},
    {u"lblPC", u"computer di controllo"},
    {u"lblFunzMod", u"funzionamento"},
    {u"lblLingua", u"lingua"},
    {u"lblDataOra", u"data e ora"},
    {u"lblRetro", u"retroilluminazione"},
    {u"lblTimeCom", u"tempo di comunicazione (10-2500)"},
    {u"lblTimeSblocco", u"tempo sblocco porta (100-2500)"},
    {u"lblTimeStart", u"tempo attesa inizio (1-250)"},
    {u"lblTimeEnd", u"tempo attesa fine (1-250)"},
    {u"lblDownload", u"tempo attesa download"},
    {u"lblPortaSlave", u"porta slave"},
    {u"lblOrarioAgg", u"aggiornamento tessere"},
    {u"lblIndirizzoIP", u"indirizzo IP"},
    {u"lblPort", u"porta TCP"},
    {u"lblSubMask", u"subnet mask"},
    {u"lblGateway", u"gateway"},
    {u"lblAvvisoRete",
     u"Le impostazioni di rete raggiungono tutte le lokere accese: lasciarne accesa una sola."},
};

const QString& elenco_computer() {
  static const QString sql = u"SELECT * FROM computers ORDER BY nome_computer"_s;
  return sql;
}

}  // namespace

frm_param_lokere::frm_param_lokere(ElencoFinestre& elenco, Connection& archivio, ServiziGriglia& servizi,
                                   WinsockFactory& socket, TimerFactory& timer)
    : Finestra(elenco, u"frm_param_lokere"_s),
      lista(*this),
      Command4(*this, u"Command4"_s, u"ricerca broadcast"_s),
      avanzamento(*this, servizi.attesa.orologio(), timer, servizi.traduttore),
      pannello(*this),
      Command2(*this, u"Command2"_s, u"imposta parametri di rete"_s),
      cmdNuova(*this, u"cmdNuova"_s, u"nuova"_s),
      cmdModifica(*this, u"cmdModifica"_s, u"modifica"_s),
      cmdRegPar(*this, u"cmdRegPar"_s, u"registra parametri"_s),
      cmdAnnulla(*this, u"cmdAnnulla"_s, u"annulla mod."_s),
      Command1(*this, u"Command1"_s, u"elimina"_s),
      Command10(*this, u"Command10"_s, u"leggi contatori"_s),
      lblChiaviLok(*this, u"lblChiaviLok"_s),
      lblTessereLok(*this, u"lblTessereLok"_s),
      Command6(*this, u"Command6"_s, u"azzera memoria lokera"_s),
      Command5(*this, u"Command5"_s, u"reset lokere"_s),
      grd(*this, u"grd"_s),
      archivio_(archivio),
      connessione_(archivio),
      servizi_(servizi),
      linea_(*this, socket, servizi.attesa, servizi.traduttore, servizi.messaggi),
      didascalie_(*this, didascalie),
      griglia_lokere_(lista.grdLok, servizi),
      griglia_computer_(grd, servizi) {
  grd.Caption = u"Lettori da tavolo"_s;
  collega_eventi();
  abilita();
}

void frm_param_lokere::collega_eventi() {
  lista.grdLok.RowColChange = [this] { grdLok_RowColChange(); };
  grd.AfterUpdate = [this](int riga) { salva_lettore(riga); };
  Command4.Click = [this] { Command4_Click(); };
  cmdNuova.Click = [this] { cmdNuova_Click(); };
  cmdModifica.Click = [this] { cmdModifica_Click(); };
  cmdAnnulla.Click = [this] { cmdAnnulla_Click(); };
  cmdRegPar.Click = [this] { cmdRegPar_Click(); };
  Command2.Click = [this] { Command2_Click(); };
  Command1.Click = [this] { Command1_Click(); };
  Command10.Click = [this] { Command10_Click(); };
  Command6.Click = [this] { Command6_Click(); };
  Command5.Click = [this] { chiedi_reset(); };
}

void frm_param_lokere::Form_Load() {
  prepara_liste(
      *this, servizi_, connessione_, u"Parametri generali"_s,
      {{griglia_lokere_, u"SELECT * FROM PARAMETRI ORDER BY ID"_s}, {griglia_computer_, elenco_computer()}});
  lista.completa_colonne();
  grd.AllowUpdate = true;
  con_colonna(grd, u"nome_computer", [](Colonna& c) { c.bloccata = true; });
  if (const Errore e = pannello.riempi_elenchi(servizi_.traduttore, connessione_); e.fallito())
    mostra_errore(e);
  griglia_computer_.popola(connessione_, elenco_computer());
  carica_lista();
  lista.grdLok.Row(0);
  grdLok_RowColChange();
}

void frm_param_lokere::mostra_errore(const Errore& errore) {
  servizi_.messaggi.mostra(errore.descrizione);
}

void frm_param_lokere::avvisa(const QString& testo, const QString& titolo) {
  lokera::avvisa(servizi_.traduttore, servizi_.messaggi, testo, titolo);
}

void frm_param_lokere::carica_lista() {
  if (const Errore e = lista.carica_lista_lokere(connessione_); e.fallito()) mostra_errore(e);
}

void frm_param_lokere::abilita() {
  const bool libera = !in_attesa();
  const bool sfoglia = libera && !in_modifica_;
  const bool riga = lista.grdLok.Row() >= 0;
  lista.grdLok.Enabled = grd.Enabled = sfoglia;
  for (CommandButton* c : {&Command4, &cmdNuova, &Command5}) c->Enabled = sfoglia;
  for (CommandButton* c : {&Command1, &Command10, &Command6}) c->Enabled = sfoglia && riga;
  cmdModifica.Enabled = sfoglia && riga && riga_letta_;
  pannello.pnlPar.Enabled = in_modifica_;
  for (CommandButton* c : {&cmdRegPar, &cmdAnnulla, &Command2}) c->Enabled = libera && in_modifica_;
}

// Whatever is done next is done at the cabinet of this row: the line to another one goes.
void frm_param_lokere::grdLok_RowColChange() {
  linea_.wsk.chiudi();
  lblChiaviLok.Caption = lblTessereLok.Caption = QString();
  Recordset rs;
  const Errore e = archivio_.apri(rs, lista.id());
  riga_letta_ = !e.fallito();
  if (!riga_letta_ || rs.eof()) {
    pannello.svuota();
    pannello.txtIndirizzoIP.Text = lista.cella(u"ip_lokera");
  } else {
    pannello.mostra(rs);
  }
  mostra_rete();
  abilita();
  if (!riga_letta_) mostra_errore(e);
}

void frm_param_lokere::mostra_rete() {
  const QString porta = lista.cella(u"porta");
  pannello.txtPort.Text = porta.isEmpty() ? QString::fromUtf16(porta_di_fabbrica) : porta;
  pannello.txtSubMask.Text = lista.cella(u"subnet mask");
  pannello.txtGateway.Text = lista.cella(u"gateway");
}

void frm_param_lokere::cmdNuova_Click() {
  lista.aggiungi_nuova();
  cmdModifica_Click();
}

void frm_param_lokere::cmdModifica_Click() {
  in_modifica_ = true;
  abilita();
  (lista.id() == 0 ? pannello.txtID : pannello.txtDescrizione).SetFocus();
}

void frm_param_lokere::cmdAnnulla_Click() {
  // A row that was begun by hand and is nothing else.
  if (lista.id() == 0 && lista.cella(u"ip_lokera").isEmpty()) lista.grdLok.RemoveItem(lista.grdLok.Row());
  fine_modifica();
  lista.grdLok.SetFocus();
}

void frm_param_lokere::fine_modifica() {
  in_modifica_ = false;
  grdLok_RowColChange();
}

void frm_param_lokere::salva_lettore(int riga) {
  const Errore e = connessione_.Execute(
      u"update computers set nr_seriale_vidimatore = ? where nome_computer = ?"_s,
      {grd.cella(riga, u"nr_seriale_vidimatore").toInt(), grd.cella(riga, u"nome_computer")});
  if (e.fallito()) mostra_errore(e);
}

}  // namespace lokera
