#include "cards/frm_tessere.h"

#include "forms/messaggi.h"

namespace lokera {

using namespace Qt::StringLiterals;

namespace {

constexpr Didascalia didascalie[] = {
    {u"lblTitLokera", u"lokera"},
    {u"lblAvviso",
     u"attenzione: mentre è aperto questo programma lo scarico transazioni e l'abilitazione tessere "
     u"operatori / fasce orarie sono disabilitati"},
    {u"lblCodice", u"codice"},
    {u"lblCodiceVer", u"verifica codice"},
    {u"lblDescrizione", u"descrizione"},
    {u"lblGruppo", u"gruppo"},
    {u"lblPosizione", u"posizione"},
    {u"lblMenoUno", u"( - 1 rispetto al numero)"},
    {u"lblNrSeriale", u"Nr. seriale"},
};

constexpr struct {
  const char16_t* titolo;
  const char16_t* campo;
  int larghezza;
  Allineamento allineamento;
} colonne[] = {{u"posizione", u"posizione", 1150, Allineamento::destra},
               {u"codice", u"codice", 1450, Allineamento::sinistra},
               {u"descrizione", u"descrizione", 3600, Allineamento::sinistra},
               {u"lokera", u"lokera", 970, Allineamento::destra},
               {u"gruppo", u"gruppo", 860, Allineamento::destra},
               {u"operatore", u"operatore", 1300, Allineamento::sinistra},
               {u"intestazione", u"", 2900, Allineamento::sinistra},
               {u"uscita", u"uscita", 2100, Allineamento::centro}};
constexpr int colonna_titolare = 6;

std::vector<Colonna> crea_colonne() {
  std::vector<Colonna> tutte;
  tutte.reserve(std::size(colonne));
  for (const auto& c : colonne) {
    Colonna colonna;
    colonna.Caption = QString::fromUtf16(c.titolo);
    colonna.campo = QString::fromUtf16(c.campo);
    colonna.Width = c.larghezza;
    colonna.allineamento = c.allineamento;
    tutte.push_back(colonna);
  }
  tutte.back().formato = u"dd/mm/yyyy hh.nn.ss"_s;
  return tutte;
}

}  // namespace

frm_tessere::frm_tessere(ElencoFinestre& elenco, const ServiziTessere& servizi, LokeraCorrente& corrente,
                         InvioTessere& invio, Pointer& puntatore)
    : Finestra(elenco, u"frm_tessere"_s),
      servizi_(servizi),
      comboLKR(*this, u"comboLKR"_s),
      lblLokera(*this, u"lblLokera"_s),
      lblIndirizzoIP(*this, u"lblIndirizzoIP"_s),
      optOrdPos(*this, u"optOrdPos"_s),
      optOrdNome(*this, u"optOrdNome"_s),
      grd(*this, u"grd"_s),
      ricerca(grd, servizi.griglie.traduttore, {u"codice"_s, u"descrizione"_s, u"gruppo"_s, u"operatore"_s}),
      lblRecords_LOK(*this, u"lblRecords_LOK"_s),
      lblRecords_DB(*this, u"lblRecords_DB"_s),
      Command10(*this, u"Command10"_s, u"ctrl"_s),
      lavoro(*this, servizi.griglie.attesa, servizi.griglie.traduttore),
      txtCodice(*this, u"txtCodice"_s),
      txtCodiceVer(*this, u"txtCodiceVer"_s),
      Text1(*this, u"Text1"_s),
      comboG(*this, u"comboG"_s),
      Text2(*this, u"Text2"_s),
      Command8(*this, u"Command8"_s, u"nuova posizione"_s),
      Command3(*this, u"Command3"_s, u"nuovo"_s),
      Command4(*this, u"Command4"_s, u"modifica"_s),
      Command1(*this, u"Command1"_s, u"registra"_s),
      Command2(*this, u"Command2"_s, u"annulla mod."_s),
      Command5(*this, u"Command5"_s, u"elimina"_s),
      Command7(*this, u"Command7"_s, u"Aggiornamento totale chiavi  Lokera"_s),
      lettore(*this, servizi_.lettore,
              {txtCodice, txtCodiceVer, [this] { return nuovo_record; }, [this] { controlla_doppia(); }}),
      lblNota(*this, u"lblNota"_s),
      lblTrattenute(*this, u"lblTrattenute"_s),
      corrente_(corrente),
      invio_(invio),
      puntatore_(puntatore),
      archivio_(servizi.archivio),
      coda_(servizi.archivio),
      didascalie_(*this, didascalie),
      griglia_(grd, servizi.griglie) {
  grd.imposta_colonne(crea_colonne());
  griglia_.defaults();
  grd.OrdinabileDaTestata = true;
  comboLKR.solo_voci = true;
  optOrdPos.Value = true;
  Text1.MaxLength = 100;
  txtCodice.MaxLength = txtCodiceVer.MaxLength = 10;
  Text2.Enabled = false;
  collega_eventi();
  abilita();
}

void frm_tessere::collega_eventi() {
  comboLKR.CloseUp = [this](int voce) { comboLKR_CloseUp(voce); };
  optOrdPos.Click = optOrdNome.Click = [this] { elenca_tessere(); };
  grd.RowColChange = [this] { grd_RowColChange(); };
  grd.RowLoaded = [this](int riga, AspettoRiga& aspetto) {
    aspetto.celle = {{colonna_titolare, titolari_.value(grd.cella(riga, u"operatore"))}};
  };
  ricerca.anche = [this](int riga) { return titolari_.value(grd.cella(riga, u"operatore")); };
  comboG.CloseUp = [this](int) { mostra_note(); };
  txtCodice.LostFocus = [this] { txtCodice_LostFocus(); };
  Command1.Click = [this] { Command1_Click(); };
  Command2.Click = [this] { Command2_Click(); };
  Command3.Click = [this] { Command3_Click(); };
  Command4.Click = [this] { Command4_Click(); };
  Command5.Click = [this] { Command5_Click(); };
  Command7.Click = [this] { Command7_Click(); };
  Command8.Click = [this] { Command8_Click(); };
  Command10.Click = [this] { Command10_Click(); };
}

void frm_tessere::Form_Load() {
  const Attesa attesa(*this);
  servizi_.timerOrario.Enabled(false);
  tenuta_.emplace(servizi_.sessione, Fermi::tick);
  Caption(traduci(u"   CHIAVI"_s));
  optOrdPos.Caption = traduci(u"ordinamento per posizione"_s);
  optOrdNome.Caption = traduci(u"ordinamento per descrizione"_s);
  servizi_.griglie.traduttore.traduci_form(*this);
  interattivo = true;
  lettore.Form_Load();
  riempi_elenchi();
  comboLKR_CloseUp(0);
}

bool frm_tessere::Form_Unload() {
  lettore.Form_Unload();
  tenuta_.reset();
  servizi_.timerOrario.Enabled(true);
  return true;
}

void frm_tessere::riempi_elenchi() {
  Recordset gruppi, lokere;
  Errore e = gruppi.Open(u"SELECT * FROM gruppi ORDER BY codice"_s, servizi_.archivio);
  for (; !e.fallito() && !gruppi.eof(); e = gruppi.MoveNext())
    comboG.AddItem({gruppi.testo(u"codice"), gruppi.testo(u"descrizione")});
  if (!e.fallito())
    e = lokere.Open(u"SELECT * FROM parametri where computer_ctrl = ?"_s, servizi_.archivio,
                    {servizi_.lettore.nome_computer});
  for (; !e.fallito() && !lokere.eof(); e = lokere.MoveNext())
    comboLKR.AddItem({lokere.testo(u"id"), lokere.testo(u"descrizione"), lokere.testo(u"ip_lokera")});
  if (e.fallito()) mostra_errore(e);
}

void frm_tessere::comboLKR_CloseUp(int voce) {
  const Attesa attesa(*this);
  const auto& voci = comboLKR.voci();
  const QStringList scelta =
      static_cast<size_t>(voce) < voci.size() ? voci[static_cast<size_t>(voce)] : QStringList();
  comboLKR.Text = scelta.value(0);
  lblLokera.Caption = scelta.value(1);
  lblIndirizzoIP.Caption = scelta.value(2);
  corrente_.porta_a(comboLKR.Text, lblLokera.Caption, lblIndirizzoIP.Caption);
  if (lokera_scelta) lokera_scelta();
  elenca_tessere();
  conta_trattenute();
  tenuta_->connetti();
  servizi_.sessione.pausa(2);
  collegata_ = tenuta_->mia() && servizi_.sessione.connessa();
  if (!collegata_ && !in_chiusura()) avvisa(u"Errore in apertura connessione TCP-IP alla lokera!"_s);
}

void frm_tessere::cambiAttivazione(bool modifica) {
  in_modifica_ = modifica;
  elimina_ = modifica && !nuovo_record;
  abilita();
}

void frm_tessere::abilita() {
  const bool libera = !in_attesa();
  const bool sfoglia = libera && !in_modifica_;
  const bool modifica = libera && in_modifica_;
  for (Controllo* c : std::initializer_list<Controllo*>{&grd, &comboLKR, &optOrdPos, &optOrdNome, &Command10})
    c->Enabled = sfoglia;
  for (CommandButton* c : {&Command3, &Command4}) c->Enabled = sfoglia && collegata_;
  Command7.Enabled = sfoglia;
  for (Controllo* c : std::initializer_list<Controllo*>{&txtCodice, &txtCodiceVer, &Text1, &comboG})
    c->Enabled = in_modifica_;
  for (CommandButton* c : {&Command1, &Command2, &Command8}) c->Enabled = modifica;
  Command5.Enabled = modifica && elimina_;
}

void frm_tessere::avvisa(const QString& testo, const QString& titolo, Icona icona) {
  lokera::avvisa(servizi_.griglie.traduttore, servizi_.griglie.messaggi, testo, titolo, icona);
}

bool frm_tessere::scelta_una_lokera() {
  if (!comboLKR.Text().isEmpty()) return true;
  avvisa(u"scegliere una lokera!"_s);
  return false;
}

void frm_tessere::Command3_Click() {
  if (!scelta_una_lokera()) return;
  const auto libera = archivio_.posizione_libera(lokera());
  if (libera.fallito()) return mostra_errore(libera.errore());
  nuovo_record = true;
  sospesa_.clear();
  Text1.Text = txtCodice.Text = txtCodiceVer.Text = QString();
  Text2.Text = QString::number(*libera);
  mostra_note();
  cambiAttivazione(true);
  txtCodice.SetFocus();
}

void frm_tessere::Command4_Click() {
  if (!scelta_una_lokera() || grd.Row() < 0) return;
  nuovo_record = false;
  sospesa_.clear();
  campi_da_riga();
  cambiAttivazione(true);
  Text1.SetFocus();
}

void frm_tessere::Command2_Click() {
  const int riga = grd.Row();
  nuovo_record = false;
  sospesa_.clear();
  elenca_tessere();
  grd.Row(riga);
  campi_da_riga();
  cambiAttivazione(false);
  grd.SetFocus();
}

void frm_tessere::Command8_Click() {
  const Attesa attesa(*this);
  const auto risposta = servizi_.domande.chiedi(traduci(u"Inserisci la nuova posizione"_s), {}, Text2.Text);
  if (!risposta) return;
  const auto posizione = leggi_posizione(*risposta);
  if (!posizione) return avvisa(u"La posizione va da 0 a 199."_s);
  Text2.Text = QString::number(*posizione);
  mostra_note();
}

void frm_tessere::Command10_Click() {
  const Attesa attesa(*this);
  if (!servizi_.sessione.connessa())
    return avvisa(u"Errore di comunicazione computer-lokera. Operazione annullata!"_s);
  const auto quanti = conta_record(servizi_.sessione, record_chiave);
  if (quanti.fallito()) return avvisa(u"Errore di comunicazione con la lokera."_s);
  lblRecords_LOK.Caption = traduci(u"Records presenti nella Lokera n. "_s) + *quanti;
}

}  // namespace lokera
