#include "reports/frm_print.h"

#include <algorithm>

#include "forms/formato.h"
#include "reports/imposta_stampante.h"

namespace lokera {

namespace {

constexpr Didascalia didascalie[] = {
    {u"lblStampante", u"stampante"},
    {u"lblAlimentatore", u"alimentazione"},
    {u"lblFormato", u"formato"},
    {u"lblLarghezza", u"larghezza (cm)"},
    {u"lblAltezza", u"altezza (cm)"},
    {u"lblOrientamento", u"orientamento"},
    {u"lblMargineSx", u"margine sinistro (cm)"},
    {u"lblFont", u"carattere"},
    {u"lblDimensione", u"dimensione"},
    {u"lblQualita", u"qualità"},
    {u"lblDestinazione", u"destinazione"},
    {u"lblTestata", u"testata"},
};

struct VoceElenco {
  const char16_t* testo;
  const char16_t* valore;
};
constexpr VoceElenco qualita[] = {{u"Qualità standard", u"-0"},
                                  {u"Qualità bozza", u"-1"},
                                  {u"Qualità bassa", u"-2"},
                                  {u"Qualità media", u"-3"},
                                  {u"Qualità alta", u"-4"}};
constexpr VoceElenco alimentatori[] = {{u"cassetto superiore", u"1"},
                                       {u"cassetto inferiore", u"2"},
                                       {u"cassetto centrale", u"3"},
                                       {u"alimentazione manuale", u"4"},
                                       {u"selezione automatica", u"7"}};
constexpr VoceElenco formati[] = {{u"A4", u"9"},     {u"A3", u"8"},    {u"A5", u"11"},
                                  {u"Letter", u"1"}, {u"Legal", u"5"}, {u"personalizzato", u"256"}};

constexpr double dimensione_minima = 4, dimensione_massima = 72;

double numero(const TextBox& casella) {
  return std::max(0.0, leggi_numero(casella.Text().trimmed()).value_or(0));
}

QString cm(double valore) {
  return valore > 0 ? formatta(valore) : QString();
}

}  // namespace

frmPrint::frmPrint(const ServiziStampa& servizi, SSOleDBGrid& griglia, const QString& nome_stampa)
    : Finestra(servizi.elenco, u"frmPrint"_s, {.modale = true, .si_adatta = false}),
      cmbStampanti(*this, u"cmbStampanti"_s),
      cmbAlimentatore(*this, u"cmbAlimentatore"_s),
      cmbFormato(*this, u"cmbFormato"_s),
      txtLarghezza(*this, u"txtLarghezza"_s),
      txtAltezza(*this, u"txtAltezza"_s),
      optVerticale(*this, u"optVerticale"_s),
      optOrizzontale(*this, u"optOrizzontale"_s),
      txtMargineSx(*this, u"txtMargineSx"_s),
      cmbFont(*this, u"cmbFont"_s),
      txtDimensione(*this, u"txtDimensione"_s),
      cmbQualità(*this, u"cmbQualità"_s),
      chkFacilitata(*this, u"chkFacilitata"_s),
      chkTesto(*this, u"chkTesto"_s),
      chkExcel(*this, u"chkExcel"_s),
      chkCarattere(*this, u"chkCarattere"_s),
      chkDitta(*this, u"chkDitta"_s),
      chkData(*this, u"chkData"_s),
      lavoro(*this, servizi.griglie.attesa, servizi.griglie.traduttore),
      Command3(*this, u"Command3"_s, u"imposta pagina"_s),
      Command6(*this, u"Command6"_s, u"anteprima"_s),
      Command4(*this, u"Command4"_s, u"conferma"_s),
      Command5(*this, u"Command5"_s, u"annulla"_s),
      servizi_(servizi),
      tiene_aperta_(griglia.finestra()),
      contesto_{nome_stampa, servizi.utente()},
      didascalie_(*this, didascalie),
      archivio_(servizi.archivio),
      report_(servizi, griglia, contesto_, lavoro) {
  collega_eventi();
}

void frmPrint::collega_eventi() {
  Command3.Click = [this] { Command3_Click(); };
  Command4.Click = [this] { Command4_Click(); };
  Command5.Click = [this] { Command5_Click(); };
  Command6.Click = [this] { Command6_Click(); };
  cmbFormato.Click = [this] { abilita(); };
  for (CheckBox* casella : {&chkTesto, &chkExcel, &chkCarattere}) casella->Click = [this] { abilita(); };
}

void frmPrint::Form_Load() {
  Caption(traduci(u"Stampa"_s));
  for (auto& [casella, testo] : std::initializer_list<std::pair<Proprieta<QString>&, QString>>{
           {optVerticale.Caption, u"verticale"_s},
           {optOrizzontale.Caption, u"orizzontale"_s},
           {chkFacilitata.Caption, u"lettura facilitata (righe più distanti)"_s},
           {chkTesto.Caption, u"esporta su file di testo"_s},
           {chkExcel.Caption, u"esporta su foglio elettronico"_s},
           {chkCarattere.Caption, u"modalità carattere (stampa.txt)"_s},
           {chkDitta.Caption, u"dati della ditta"_s},
           {chkData.Caption, u"data di stampa"_s}})
    casella = traduci(testo);
  riempi_elenchi();
  servizi_.griglie.traduttore.traduci_form(*this);
  const auto impostazioni = archivio_.leggi(contesto_);
  const auto scelte = archivio_.scelte(contesto_.nome_stampa);
  for (const Errore& e : {impostazioni.errore(), scelte.errore()})
    if (e.fallito()) segnala(e);
  mostra(*impostazioni);
  mostra(*scelte);
  abilita();
}

void frmPrint::riempi_elenchi() {
  for (const QString& nome : servizi_.stampante.stampanti()) cmbStampanti.AddItem(nome);
  for (const QString& nome : servizi_.stampante.caratteri()) cmbFont.AddItem(nome);
  const auto riempi = [this](ComboBox& elenco, std::span<const VoceElenco> voci) {
    for (const VoceElenco& v : voci)
      elenco.AddItem(traduci(QString::fromUtf16(v.testo)), QString::fromUtf16(v.valore));
  };
  riempi(cmbQualità, qualita);
  riempi(cmbAlimentatore, alimentatori);
  riempi(cmbFormato, formati);
}

void frmPrint::mostra(const ImpostazioniStampa& i) {
  const ProprietaStampa attuali = servizi_.stampante.proprieta();
  const bool collegata = servizi_.stampante.stampanti().contains(i.stampante);
  cmbStampanti.Value(collegata ? i.stampante : attuali.stampante);
  cmbAlimentatore.Value(i.alimentatore.left(1));
  mostra_formato(i.formato == 0 ? attuali.formato : i.formato);
  txtLarghezza.Text = cm(i.larghezza);
  txtAltezza.Text = cm(i.lunghezza);
  optOrizzontale.Value = i.orientamento == u"Landscape"_s;
  optVerticale.Value = !optOrizzontale.Value();
  txtMargineSx.Text = formatta(i.margineSx);
  if (!servizi_.stampante.caratteri().contains(i.Font)) cmbFont.AddItem(i.Font);
  cmbFont.Value(i.Font);
  txtDimensione.Text = formatta(i.dimensione);
  cmbQualità.Value(i.qualita);
  chkFacilitata.Value = i.interpollice ? 1 : 0;
}

void frmPrint::mostra_formato(int formato) {
  const QString codice = QString::number(formato);
  cmbFormato.Value(codice);
  if (cmbFormato.voce_corrente() >= 0) return;
  cmbFormato.AddItem(traduci(u"formato %1"_s).arg(formato), codice);
  cmbFormato.Value(codice);
}

void frmPrint::mostra(const ScelteReport& s) {
  chkDitta.Value = s.dati_anagrafici ? 1 : 0;
  chkData.Value = s.stampa_data ? 1 : 0;
  chkTesto.Value = s.esporta_testo ? 1 : 0;
  chkExcel.Value = s.esporta_excel ? 1 : 0;
  chkCarattere.Value = s.modalita_carattere ? 1 : 0;
}

ImpostazioniStampa frmPrint::impostazioni() const {
  ImpostazioniStampa i;
  i.stampante = cmbStampanti.Value();
  i.orientamento = optOrizzontale.Value() ? u"Landscape"_s : u"Portrait"_s;
  i.formato = cmbFormato.Value().toInt();
  i.larghezza = numero(txtLarghezza);
  i.lunghezza = numero(txtAltezza);
  i.margineSx = numero(txtMargineSx);
  i.Font = cmbFont.Value();
  const double dimensione = numero(txtDimensione);
  if (dimensione > 0) i.dimensione = std::clamp(dimensione, dimensione_minima, dimensione_massima);
  i.qualita = cmbQualità.Value();
  i.interpollice = chkFacilitata.Value() == 1;
  i.alimentatore = cmbAlimentatore.Value();
  return i;
}

ScelteReport frmPrint::scelte() const {
  return {chkDitta.Value() == 1, chkCarattere.Value() == 1, chkTesto.Value() == 1, chkExcel.Value() == 1,
          chkData.Value() == 1};
}

void frmPrint::abilita() {
  const bool libera = !in_attesa();
  const bool esporta = chkTesto.Value() == 1 || chkExcel.Value() == 1;
  const bool disegna = libera && !esporta && chkCarattere.Value() == 0;
  for (Controllo* c : std::initializer_list<Controllo*>{
           &cmbStampanti, &cmbAlimentatore, &cmbFormato, &optVerticale, &optOrizzontale, &txtMargineSx,
           &cmbFont, &txtDimensione, &cmbQualità, &chkFacilitata, &chkData, &Command3, &Command6})
    c->Enabled = disegna;
  const bool misure = disegna && cmbFormato.Value().toInt() == formato_libero;
  txtLarghezza.Enabled = txtAltezza.Enabled = misure;
  chkDitta.Enabled = chkCarattere.Enabled = libera && !esporta;
  for (Controllo* c : std::initializer_list<Controllo*>{&chkTesto, &chkExcel, &Command4, &Command5})
    c->Enabled = libera;
}

void frmPrint::Command3_Click() {
  const Attesa attesa(*this);
  const ImpostazioniStampa i = impostazioni();
  const auto pagina =
      servizi_.stampante.imposta_pagina(imposta_stampante(servizi_.stampante.proprieta(), i, i.margineSx));
  if (pagina) mostra(con_pagina(i, *pagina));
}

void frmPrint::Command4_Click() {
  const Attesa attesa(*this);
  const ImpostazioniStampa i = impostazioni();
  if (!contesto_.nome_stampa.isEmpty()) {
    if (const Errore e = archivio_.registra(contesto_, i); e.fallito()) segnala(e);
  }
  if (report_.esegui(i, scelte())) chiudi();
}

void frmPrint::Command5_Click() {
  chiudi();
}

void frmPrint::Command6_Click() {
  const Attesa attesa(*this);
  report_.anteprima(impostazioni(), scelte());
}

void stampa_elenco(const ServiziStampa& servizi, SSOleDBGrid& griglia) {
  if (griglia.Rows() > 0) servizi.apri(std::make_unique<frmPrint>(servizi, griglia, u"Movimenti"_s));
}

}  // namespace lokera
