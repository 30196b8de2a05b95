#include "commissioning/pannello_parametri.h"

#include <algorithm>
#include <limits>

#include "forms/formato.h"

namespace lokera {

using namespace Qt::StringLiterals;

namespace {

constexpr int caratteri_testo = 50;
constexpr int cifre_porta = 5;
constexpr int cifre_numero = 9;

int numero(const Tendina& t) {
  return t.Value().toInt();
}

// A number that no cabinet is ever sent, as large as its column takes.
qlonglong numero(const TextBox& t) {
  using Limiti = std::numeric_limits<qint32>;
  return static_cast<qlonglong>(
      std::clamp<double>(leggi_numero(t.Text()).value_or(0), Limiti::min(), Limiti::max()));
}

}  // namespace

PannelloParametri::PannelloParametri(Finestra& f)
    : pnlPar(f, u"pnlPar"_s),
      txtID(f, u"txtID"_s),
      txtDescrizione(f, u"txtDescrizione"_s),
      cmbPC(f, u"cmbPC"_s),
      cmbFunzMod(f, u"cmbFunzMod"_s),
      cmbLingua(f, u"cmbLingua"_s),
      cmbDataOra(f, u"cmbDataOra"_s),
      cmbRetroilluminatio(f, u"cmbRetroilluminatio"_s),
      txtTimeComServer(f, u"txtTimeComServer"_s),
      txtTimeSbloccoPorta(f, u"txtTimeSbloccoPorta"_s),
      txtTimeStart(f, u"txtTimeStart"_s),
      txtTimeEnd(f, u"txtTimeEnd"_s),
      txtDownlaod(f, u"txtDownlaod"_s),
      txtPortaSlave(f, u"txtPortaSlave"_s),
      txtOrarioAgg(f, u"txtOrarioAgg"_s),
      txtIndirizzoIP(f, u"txtIndirizzoIP"_s),
      txtPort(f, u"txtPort"_s),
      txtSubMask(f, u"txtSubMask"_s),
      txtGateway(f, u"txtGateway"_s),
      legami_{{u"id", &txtID},
              {u"descrizione", &txtDescrizione},
              {u"computer_ctrl", &cmbPC},
              {u"ip_lokera", &txtIndirizzoIP},
              {u"funzionamento", &cmbFunzMod},
              {u"lingua", &cmbLingua},
              {u"dataora", &cmbDataOra},
              {u"retroilluminazione", &cmbRetroilluminatio},
              {u"tempo_di_comunicazione", &txtTimeComServer},
              {u"tempo_sblocco_porta", &txtTimeSbloccoPorta},
              {u"tempo_attesa_inizio", &txtTimeStart},
              {u"tempo_attesa_fine", &txtTimeEnd},
              {u"tempo_attesa_download", &txtDownlaod},
              {u"porta_slave", &txtPortaSlave}} {
  txtDescrizione.MaxLength = caratteri_testo;
  for (TextBox* t : {&txtIndirizzoIP, &txtSubMask, &txtGateway}) t->MaxLength = int{lunghezza_indirizzo};
  for (TextBox* t : {&txtPort, &txtPortaSlave, &txtID}) t->MaxLength = cifre_porta;
  for (TextBox* t :
       {&txtTimeComServer, &txtTimeSbloccoPorta, &txtTimeStart, &txtTimeEnd, &txtDownlaod, &txtOrarioAgg})
    t->MaxLength = cifre_numero;
}

Errore PannelloParametri::riempi_elenchi(Traduttore& traduttore, Connection& archivio) {
  const std::pair<ComboBox*, QStringList> elenchi[] = {{&cmbFunzMod, {u"standalone"_s, u"slave"_s}},
                                                       {&cmbLingua, {u"italiano"_s, u"inglese"_s}},
                                                       {&cmbDataOra, {u"manuale"_s, u"automatico"_s}},
                                                       {&cmbRetroilluminatio, {u"spento"_s, u"acceso"_s}}};
  for (const auto& [elenco, parole] : elenchi) {
    elenco->RemoveAll();
    for (int i = 0; i < parole.size(); ++i)
      elenco->AddItem(traduttore.traduci(parole[i]), QString::number(i));
  }
  cmbPC.RemoveAll();
  Recordset rs;
  Errore e = rs.Open(u"SELECT * FROM computers ORDER BY nome_computer"_s, archivio);
  for (; !e.fallito() && !rs.eof(); e = rs.MoveNext()) cmbPC.AddItem(rs.testo(u"nome_computer"));
  return e;
}

void PannelloParametri::mostra(const Recordset& riga) {
  for (const Legame& l : legami_) l.controllo->mostra_valore(riga.valore(l.colonna), {});
  const QDateTime orario = riga.valore(u"orario_aggiornamento_tessere").toDateTime();
  txtOrarioAgg.Text = orario.isValid() ? orario.toString(u"HH:mm"_s) : QString();
}

void PannelloParametri::svuota() {
  for (const Legame& l : legami_) l.controllo->mostra_valore({}, {});
  txtOrarioAgg.Text = QString();
  for (ComboBox* c : {&cmbFunzMod, &cmbLingua}) c->Value(u"0"_s);
  for (ComboBox* c : {&cmbDataOra, &cmbRetroilluminatio}) c->Value(u"1"_s);
}

ParametriLokera PannelloParametri::parametri() const {
  return {numero(cmbFunzMod),
          numero(cmbLingua),
          numero(cmbDataOra),
          numero(cmbRetroilluminatio),
          leggi_tempo(txtTimeComServer.Text(), limiti_comunicazione),
          leggi_tempo(txtTimeSbloccoPorta.Text(), limiti_sblocco_porta),
          leggi_tempo(txtTimeStart.Text(), limiti_attesa),
          leggi_tempo(txtTimeEnd.Text(), limiti_attesa)};
}

std::vector<ValoreLokera> PannelloParametri::valori(const ParametriLokera& p) const {
  std::vector<ValoreLokera> valori = {{u"descrizione", txtDescrizione.Text()},
                                      {u"computer_ctrl", cmbPC.Value()},
                                      {u"ip_lokera", txtIndirizzoIP.Text()},
                                      {u"funzionamento", p.funzionamento},
                                      {u"lingua", p.lingua},
                                      {u"dataora", p.dataora},
                                      {u"retroilluminazione", p.retroilluminazione},
                                      {u"tempo_di_comunicazione", p.comunicazione.memorizzato},
                                      {u"tempo_sblocco_porta", p.sblocco_porta.memorizzato},
                                      {u"tempo_attesa_inizio", p.attesa_inizio.memorizzato},
                                      {u"tempo_attesa_fine", p.attesa_fine.memorizzato},
                                      {u"tempo_attesa_download", numero(txtDownlaod)},
                                      {u"porta_slave", numero(txtPortaSlave)},
                                      {u"slot", 1}};
  // A time of day that is none leaves the old one.
  const QString orario = txtOrarioAgg.Text().trimmed();
  const QDateTime letto = leggi_data_digitata(orario);
  if (orario.isEmpty() || letto.isValid())
    valori.push_back({u"orario_aggiornamento_tessere", letto.isValid() ? QVariant(letto) : QVariant()});
  return valori;
}

ReteLokera PannelloParametri::rete() const {
  return {txtIndirizzoIP.Text, txtPort.Text, txtSubMask.Text, txtGateway.Text};
}

}  // namespace lokera
