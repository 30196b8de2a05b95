#include "reports/frm_movimenti.h"

#include "forms/formato.h"
#include "forms/prepara_liste.h"
#include "ledger/movimento.h"
#include "platform/momento.h"
#include "reports/frm_print.h"

namespace lokera {

namespace {

constexpr Didascalia didascalie[] = {
    {u"lblOper", u"operatore"}, {u"lblChiavi", u"chiave"}, {u"lblDal", u"dal"}, {u"lblAl", u"al"}};

QString tutti_i_movimenti() {
  return u"select movimenti.*, tessere_chiavi.descrizione from (movimenti left join tessere_chiavi on "
         "movimenti.chiave = tessere_chiavi.codice)  where id <> 0"_s;
}

QDate giorno(const MaskEdBox& casella) {
  return leggi_data_digitata(casella.Text().trimmed()).date();
}

bool data_ignorata(const MaskEdBox& casella) {
  const QString testo = casella.Text().trimmed();
  return !testo.isEmpty() && testo != MaskEdBox::maschera_vuota && !giorno(casella).isValid();
}

/// Of a name that was typed, the entry that has it, or the only one that begins with it.
void completa(SSOleDBCombo& elenco) {
  const QString testo = elenco.Text().trimmed();
  if (testo.isEmpty() || elenco.voce_corrente() >= 0) return;
  const QStringList* trovata = nullptr;
  for (const QStringList& voce : elenco.voci()) {
    const QString& nome = voce.at(elenco.DataFieldToDisplay);
    if (!nome.startsWith(testo, Qt::CaseInsensitive)) continue;
    if (trovata) return;
    trovata = &voce;
  }
  if (trovata) elenco.Value(trovata->at(elenco.DataFieldList));
}

}  // namespace

frm_movimenti::frm_movimenti(const ServiziStampa& servizi)
    : Finestra(servizi.elenco, u"frm_movimenti"_s),
      cmbOper(*this, u"cmbOper"_s),
      cmbChiavi(*this, u"cmbChiavi"_s),
      txtDal(*this, u"txtDal"_s),
      txtAl(*this, u"txtAl"_s),
      Command1(*this, u"Command1"_s, u"ricerca"_s),
      grd(*this, u"grd"_s),
      ricerca(grd, servizi.griglie.traduttore,
              {u"data"_s, u"operatore"_s, u"intestazione"_s, u"chiave"_s, u"descrizione"_s}),
      lblTrovati(*this, u"lblTrovati"_s),
      Command2(*this, u"Command2"_s, u"stampa"_s),
      servizi_(servizi),
      didascalie_(*this, didascalie),
      griglia_(grd, servizi.griglie) {
  grd.OrdinabileDaTestata = true;
  Command1.Click = [this] { Command1_Click(); };
  Command2.Click = [this] { Command2_Click(); };
  grd.RowLoaded = [this](int riga, AspettoRiga& aspetto) {
    if (operazione_ < 0) return;
    const QByteArrayView tipo = grd.cella_utf8(riga, operazione_);
    if (tipo == QByteArrayView(&tipo_riconsegna, 1)) aspetto.stile = u"entrata"_s;
    if (tipo == QByteArrayView(&tipo_prelievo, 1)) aspetto.stile = u"uscita"_s;
  };
}

void frm_movimenti::Form_Load() {
  prepara_filtri();
  prepara_liste(*this, servizi_.griglie, servizi_.archivio, u"Movimenti"_s,
                {{griglia_, tutti_i_movimenti()}});
  operazione_ = grd.colonna(u"operazione");
  riempi(cmbOper, u"select * from tessere_operatori  order by intestazione"_s, u"intestazione"_s);
  riempi(cmbChiavi, u"select * from tessere_chiavi order by descrizione"_s, u"descrizione"_s);
  txtAl.Text = servizi_.orologio.adesso().toString(u"dd/MM/yyyy"_s);
}

void frm_movimenti::prepara_filtri() {
  Colonna codice, nome;
  codice.Caption = u"codice"_s;
  nome.Caption = u"nome"_s;
  for (SSOleDBCombo* elenco : {&cmbOper, &cmbChiavi}) {
    elenco->imposta_colonne({codice, nome});
    elenco->DataFieldToDisplay = 1;
  }
}

void frm_movimenti::riempi(SSOleDBCombo& elenco, const QString& sql, const QString& descrizione) {
  elenco.RemoveAll();
  elenco.AddItem({QString(), QString()});
  Recordset rs;
  Errore e = rs.Open(sql, servizi_.archivio);
  for (; !e.fallito() && !rs.eof(); e = rs.MoveNext())
    elenco.AddItem({rs.testo(u"codice"), rs.testo(descrizione)});
  if (e.fallito()) servizi_.griglie.messaggi.mostra(e.descrizione);
}

void frm_movimenti::Command1_Click() {
  QString sql = tutti_i_movimenti();
  QVariantList valori;
  const auto se = [&](bool condizione, const QString& pezzo, const QVariant& valore) {
    if (!condizione) return;
    sql += pezzo;
    valori += valore;
  };
  for (SSOleDBCombo* elenco : {&cmbOper, &cmbChiavi}) completa(*elenco);
  const QString operatore = cmbOper.Value().trimmed();
  const QString chiave = cmbChiavi.Value().trimmed();
  const QDate dal = giorno(txtDal);
  const QDate al = giorno(txtAl);
  se(!operatore.isEmpty(), u" and movimenti.operatore = ?"_s, operatore);
  se(!chiave.isEmpty(), u" and movimenti.chiave = ?"_s, chiave);
  se(dal.isValid(), u" and movimenti.data >= ?"_s, momento(dal));
  se(al.isValid(), u" and movimenti.data <= ?"_s, momento(al.addDays(1)));
  const QString in_corso = servizi_.griglie.traduttore.traduci(u"ricerca in corso..."_s);
  lblTrovati.Caption = in_corso;
  if (griglia_.popola(servizi_.archivio, sql + u"  order by movimenti.data"_s, valori))
    lblTrovati.Caption = trovati();
  else if (lblTrovati.Caption() == in_corso)  // it failed; a later search has its own words there
    lblTrovati.Caption = QString();
}

QString frm_movimenti::trovati() {
  Traduttore& t = servizi_.griglie.traduttore;
  QString testo = t.traduci(u"movimenti trovati: %1"_s).arg(grd.Rows());
  if (data_ignorata(txtDal) || data_ignorata(txtAl)) testo += t.traduci(u" (data non valida ignorata)"_s);
  for (const SSOleDBCombo* elenco : {&cmbOper, &cmbChiavi})
    if (const QString cercato = elenco->Text().trimmed(); !cercato.isEmpty() && elenco->voce_corrente() < 0)
      testo += t.traduci(u" (codice cercato: %1)"_s).arg(cercato);
  return testo;
}

void frm_movimenti::Command2_Click() {
  stampa_elenco(servizi_, grd);
}

}  // namespace lokera
