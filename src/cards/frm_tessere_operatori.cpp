#include "cards/frm_tessere_operatori.h"

#include "cards/invio_tessere.h"
#include "forms/celle_nominate.h"
#include "forms/messaggi.h"
#include "forms/prepara_liste.h"

namespace lokera {

using namespace Qt::StringLiterals;

namespace {

constexpr Didascalia didascalie[] = {
    {u"lblCodice", u"codice"},
    {u"lblCodiceVer", u"verifica codice"},
    {u"lblIntestazione", u"descrizione"},
    {u"lblDal", u"valido dal"},
    {u"lblAl", u"valido al"},
    {u"lblGruppo", u"gruppo"},
    {u"lblNrMax", u"nr. max chiavi prel. (0=nessun limite)"},
    {u"lblPosizione", u"posizione"},
    {u"lblNrSeriale", u"Nr. seriale"},
};

constexpr const char16_t* colonne[] = {u"codice",    u"intestazione", u"valido_dal",
                                       u"valido_al", u"gruppo",       u"NrMaxPrelievi"};
constexpr const char16_t* colonne_nascoste[] = {u"posizione"};
constexpr const char16_t* colonne_gruppi[] = {u"codice", u"descrizione", u"abil"};

const QString& elenco_gruppi() {
  static const QString sql = u"SELECT codice, descrizione FROM gruppi ORDER BY codice"_s;
  return sql;
}

QString elenco_tessere() {
  return u"SELECT * FROM tessere_operatori  where codice not in (%1) ORDER BY intestazione"_s.arg(
      CodaTessere::tutte_in_uscita());
}

}  // namespace

frm_tessere_operatori::frm_tessere_operatori(ElencoFinestre& elenco, const ServiziTessere& servizi)
    : Finestra(elenco, u"frm_tessere_operatori"_s),
      servizi_(servizi),
      grd(*this, u"grd"_s),
      grdGru(*this, u"grdGru"_s),
      ricerca(grd, servizi.griglie.traduttore, {u"codice"_s, u"intestazione"_s, u"gruppo"_s}),
      lblRecords_LOK(*this, u"lblRecords_LOK"_s),
      lblRecords_DB(*this, u"lblRecords_DB"_s),
      Command10(*this, u"Command10"_s, u"ctrl"_s),
      lavoro(*this, servizi.griglie.attesa, servizi.griglie.traduttore),
      txtCodice(*this, u"txtCodice"_s),
      txtCodiceVer(*this, u"txtCodiceVer"_s),
      Text1(*this, u"Text1"_s),
      txtDal(*this, u"txtDal"_s),
      txtAl(*this, u"txtAl"_s),
      cmbGru(*this, u"cmbGru"_s),
      txtNrMaxPrelievi(*this, u"txtNrMaxPrelievi"_s),
      Text2(*this, u"Text2"_s),
      Command9(*this, u"Command9"_s, u"nuova posizione"_s),
      Command8(*this, u"Command8"_s, u"seleziona tutti i gruppi  >>"_s),
      Command3(*this, u"Command3"_s, u"nuovo"_s),
      Command4(*this, u"Command4"_s, u"modifica"_s),
      Command1(*this, u"Command1"_s, u"registra"_s),
      Command2(*this, u"Command2"_s, u"annulla mod."_s),
      Command5(*this, u"Command5"_s, u"elimina"_s),
      Command7(*this, u"Command7"_s, u"Cancellazione totale tessere  operatori dalla Lokera"_s),
      Command11(*this, u"Command11"_s, u"aggiornamento totale Tessere sulle Lokere"_s),
      lettore(*this, servizi_.lettore,
              {txtCodice, txtCodiceVer, [this] { return nuovo_record; },
               [this] {
                 if (doppia(txtCodice.Text().trimmed(), {})) txtCodice.Text = txtCodiceVer.Text = QString();
               }}),
      lblScadenza(*this, u"lblScadenza"_s),
      lblInMano(*this, u"lblInMano"_s),
      archivio_(servizi.archivio),
      coda_(servizi.archivio),
      didascalie_(*this, didascalie),
      griglia_(grd, servizi.griglie),
      griglia_gruppi_(grdGru, servizi.griglie) {
  grd.Caption = u"Tessere operatori"_s;
  grd.OrdinabileDaTestata = true;
  grdGru.Caption = u"  Gruppi di chiavi abilitate"_s;
  txtCodice.MaxLength = txtCodiceVer.MaxLength = 10;
  Text1.MaxLength = 100;
  Text2.Enabled = false;
  collega_eventi();
  abilita();
}

void frm_tessere_operatori::collega_eventi() {
  grd.RowColChange = [this] { grd_RowColChange(); };
  grd.RowLoaded = [this](int riga, AspettoRiga& aspetto) {
    aspetto.stile = scaduta(riga) ? u"scaduto"_s : u"normale"_s;
  };
  txtCodice.LostFocus = [this] { txtCodice_LostFocus(); };
  Command1.Click = [this] { Command1_Click(); };
  Command2.Click = [this] { Command2_Click(); };
  Command3.Click = [this] { Command3_Click(); };
  Command4.Click = [this] { Command4_Click(); };
  Command5.Click = [this] { Command5_Click(); };
  Command7.Click = [this] { Command7_Click(); };
  Command8.Click = [this] { Command8_Click(); };
  Command9.Click = [this] { Command9_Click(); };
  Command10.Click = [this] { Command10_Click(); };
  Command11.Click = [this] { Command11_Click(); };
}

void frm_tessere_operatori::Form_Load() {
  const Attesa attesa(*this);
  servizi_.timerOrario.Enabled(false);
  prepara_liste(*this, servizi_.griglie, servizi_.archivio, u"   Tessere  Operatori"_s,
                {{griglia_, elenco_tessere()}, {griglia_gruppi_, elenco_gruppi()}});
  prepara_colonne();
  griglia_gruppi_.popola(servizi_.archivio, elenco_gruppi());
  riempi_gruppi_utente();
  elenca_operatori();
  lettore.Form_Load();
}

bool frm_tessere_operatori::Form_Unload() {
  lettore.Form_Unload();
  servizi_.timerOrario.Enabled(true);
  return true;
}

void frm_tessere_operatori::prepara_colonne() {
  completa_colonne(grd, colonne, true);
  completa_colonne(grd, colonne_nascoste, false);
  completa_colonne(grdGru, colonne_gruppi, true);
  grdGru.AllowUpdate = true;
  for (const char16_t* campo : colonne_gruppi)
    con_colonna(grdGru, campo, [](Colonna& c) { c.bloccata = true; });
  con_colonna(grdGru, u"abil", [](Colonna& c) { c.stile = StileCella::spunta; });
}

void frm_tessere_operatori::riempi_gruppi_utente() {
  Recordset rs;
  Errore e = rs.Open(u"SELECT * FROM gruppi_utente"_s, servizi_.archivio);
  for (; !e.fallito() && !rs.eof(); e = rs.MoveNext())
    cmbGru.AddItem({rs.testo(u"codice"), rs.testo(u"descrizione")});
  if (e.fallito()) mostra_errore(e);
}

void frm_tessere_operatori::elenca_operatori() {
  griglia_.popola(servizi_.archivio, elenco_tessere());
  grd.Row(0);
  lblRecords_DB.Caption =
      traduci(u"Records presenti nel DataBase n. "_s) + u"%1"_s.arg(grd.Rows(), 4, 10, '0'_L1);
  grd_RowColChange();
}

void frm_tessere_operatori::cambiAttivazione(bool modifica) {
  in_modifica_ = modifica;
  con_colonna(grdGru, u"abil", [&](Colonna& c) { c.bloccata = !modifica; });
  abilita();
}

void frm_tessere_operatori::abilita() {
  const bool libera = !in_attesa();
  const bool modifica = libera && in_modifica_;
  grd.Enabled = libera && !in_modifica_;
  for (CommandButton* c : {&Command3, &Command4, &Command7, &Command10, &Command11})
    c->Enabled = libera && !in_modifica_;
  for (Controllo* c : std::initializer_list<Controllo*>{&txtCodice, &txtCodiceVer, &Text1, &txtDal, &txtAl,
                                                        &txtNrMaxPrelievi, &cmbGru})
    c->Enabled = in_modifica_;
  for (CommandButton* c : {&Command1, &Command2, &Command8, &Command9}) c->Enabled = modifica;
  Command5.Enabled = modifica && !nuovo_record;
}

void frm_tessere_operatori::avvisa(const QString& testo, const QString& titolo, Icona icona) {
  lokera::avvisa(servizi_.griglie.traduttore, servizi_.griglie.messaggi, testo, titolo, icona);
}

void frm_tessere_operatori::Command3_Click() {
  grd.AddItem(QStringList());
  grd.Row(grd.Rows() - 1);
  nuovo_record = true;
  txtCodice.Text = txtCodiceVer.Text = Text1.Text = QString();
  txtDal.Text = oggi().toString(u"dd/MM/yyyy"_s);
  txtAl.Text = MaskEdBox::maschera_vuota.toString();
  txtNrMaxPrelievi.Text = u"0"_s;
  griglia_gruppi_.popola(servizi_.archivio, elenco_gruppi());
  spunta_gruppi({});
  cambiAttivazione(true);
  txtCodice.SetFocus();
}

void frm_tessere_operatori::Command4_Click() {
  if (grd.Row() < 0) return;
  nuovo_record = false;
  grd_RowColChange();
  cambiAttivazione(true);
  Text1.SetFocus();
}

void frm_tessere_operatori::Command2_Click() {
  const int riga = grd.Row();
  nuovo_record = false;
  elenca_operatori();
  grd.Row(std::min(riga, grd.Rows() - 1));
  cambiAttivazione(false);
  grd.SetFocus();
}

void frm_tessere_operatori::Command7_Click() {
  avvisa(u"procedura obsoleta!"_s);
}

void frm_tessere_operatori::Command8_Click() {
  for (int riga = 0; riga < grdGru.Rows(); ++riga)
    grdGru.imposta_cella(riga, u"abil", testo_spuntato.toString());
}

void frm_tessere_operatori::Command9_Click() {
  const Attesa attesa(*this);
  if (const auto risposta =
          servizi_.domande.chiedi(traduci(u"Inserisci la nuova posizione"_s), {}, Text2.Text))
    Text2.Text = *risposta;
}

void frm_tessere_operatori::Command10_Click() {
  const Attesa attesa(*this);
  if (!servizi_.sessione.connessa())
    return avvisa(u"Errore di Comunicazione computer-lokera. Operazione annullata."_s);
  const auto quanti = conta_record(servizi_.sessione, record_operatore);
  if (quanti.fallito()) return avvisa(u"Errore in comunicazione con la lokera."_s);
  lblRecords_LOK.Caption = traduci(u"Records presenti nella Lokera n. "_s) + *quanti;
}

}  // namespace lokera
