#include "access/frm_fascie_orarie.h"

#include <algorithm>

#include "access/esecuzioni_fasce.h"
#include "access/fasce_cambiate.h"
#include "access/giorno.h"
#include "forms/formato.h"
#include "forms/messaggi.h"
#include "forms/prepara_liste.h"
#include "forms/salvataggio_lista.h"

namespace lokera {

using namespace Qt::StringLiterals;

namespace {

constexpr QChar attiva_fasce = u'G';
constexpr QChar attiva_giorni = u'P';

const QString& carica_fasce() {
  static const QString sql =
      u"select fascie_orarie.*, gruppi.descrizione as desc_gruppo_chiavi, gruppi_utente.descrizione as"
      u" desc_gruppo_oper from  ((fascie_orarie left join gruppi on fascie_orarie.gruppo_chiavi ="
      u" gruppi.codice) left join gruppi_utente on fascie_orarie.gruppo_oper = gruppi_utente.codice) order by"
      u" fascie_orarie.gruppo_oper, fascie_orarie.gruppo_chiavi, fascie_orarie.giorno"_s;
  return sql;
}

const QString& carica_giorni() {
  static const QString sql = u"select * from giorni_particolari order by AAAA, MM, GG"_s;
  return sql;
}

/// What can't be read leaves the choices empty; numbers can be typed all the same.
void riempi_gruppi(SSOleDBDropDown& elenco, Connection& c, const QString& sql) {
  elenco.RemoveAll();
  Recordset rs;
  if (rs.Open(sql, c).fallito()) return;
  for (Errore e; !e.fallito() && !rs.eof(); e = rs.MoveNext())
    elenco.AddItem({formatta(rs.valore(u"codice")), rs.testo(u"descrizione")});
}

void prende_da(SSOleDBGrid& grd, QStringView campo, SSOleDBDropDown& elenco) {
  con_colonna(grd, campo, [&](Colonna& c) { c.elenco = &elenco; });
}

void blocca(SSOleDBGrid& grd, QStringView campo) {
  con_colonna(grd, campo, [](Colonna& c) { c.bloccata = true; });
}

/// The group's words beside its number; none for a number that is no group.
void copia_descrizione(SSOleDBGrid& grd, int riga, QStringView gruppo, QStringView descrizione,
                       const SSOleDBDropDown& elenco) {
  const QString codice = grd.cella(riga, gruppo).trimmed();
  const auto voce =
      std::ranges::find_if(elenco.voci(), [&](const QStringList& v) { return v.value(0) == codice; });
  grd.imposta_cella(riga, descrizione, voce == elenco.voci().end() ? QString() : voce->value(1));
}

int numero(const SSOleDBGrid& grd, int riga, QStringView campo) {
  return static_cast<int>(std::clamp(leggi_numero(grd.cella(riga, campo)).value_or(0), -1e6, 1e6));
}

}  // namespace

frm_fascie_orarie::frm_fascie_orarie(ElencoFinestre& elenco, Database& db, ServiziGriglia& servizi,
                                     const Clock& orologio)
    : Finestra(elenco, u"frm_fascie_orarie"_s),
      grd(*this, u"grd"_s),
      grdG(*this, u"grdG"_s),
      drpGruOper(*this, u"drpGruOper"_s),
      drpGruChiavi(*this, u"drpGruChiavi"_s),
      drpGiorni(*this, u"drpGiorni"_s),
      drpGiorniG(*this, u"drpGiorniG"_s),
      lblOgniAnno(*this, u"lblOgniAnno"_s, u"0 = ogni anno"_s),
      Command5(*this, u"Command5"_s, u"registra modifiche"_s),
      db_(db),
      servizi_(servizi),
      orologio_(orologio),
      griglia_(grd, servizi),
      griglia_g_(grdG, servizi) {
  grd.Caption = u"Fasce orarie"_s;
  grdG.Caption = u"Giorni particolari"_s;
  apri_a_modifiche({&grd, &grdG});
  // Lists that aren't whole must not replace their tables.
  Command5.Enabled = false;
  collega_eventi();
}

void frm_fascie_orarie::collega_eventi() {
  // The keyboard brings a user into a list as well as a click does.
  grd.Click = grd.GotFocus = [this] { griglia_attiva = attiva_fasce; };
  grdG.Click = grdG.GotFocus = [this] { griglia_attiva = attiva_giorni; };
  grd.Change = [this](int riga, int colonna) { grd_Change(riga, colonna); };
  grdG.Change = [this](int riga, int) { grdG_Change(riga); };
  drpGruOper.CloseUp = [this](int voce) { drpGruOper_CloseUp(voce); };
  drpGruChiavi.CloseUp = [this](int voce) { drpGruChiavi_CloseUp(voce); };
  drpGiorni.CloseUp = drpGiorniG.CloseUp = [this](int voce) { drpGiorni_CloseUp(voce); };
  Command5.Click = [this] { Command5_Click(); };
}

void frm_fascie_orarie::Form_Load() {
  prepara_liste(*this, servizi_, db_.connessione_db, u"Fasce orarie"_s,
                {{griglia_, carica_fasce()}, {griglia_g_, carica_giorni()}});
  riempi_elenchi();
  imposta_colonne();
  Command5.Enabled = riempi_liste();
}

void frm_fascie_orarie::riempi_elenchi() {
  Connection& c = db_.connessione_db;
  riempi_gruppi(drpGruChiavi, c, u"Select * from gruppi order by codice"_s);
  riempi_gruppi(drpGruOper, c, u"Select * from gruppi_utente order by codice"_s);
  for (SSOleDBDropDown* elenco : {&drpGiorni, &drpGiorniG}) {
    elenco->RemoveAll();
    for (int g = Qt::Monday; g <= Qt::Sunday; ++g)
      elenco->AddItem({servizi_.traduttore.traduci(nome_giorno(g))});
  }
}

void frm_fascie_orarie::imposta_colonne() {
  prende_da(grd, u"gruppo_oper", drpGruOper);
  prende_da(grd, u"gruppo_chiavi", drpGruChiavi);
  prende_da(grd, u"giorno", drpGiorni);
  prende_da(grdG, u"giorno", drpGiorniG);
  blocca(grd, u"desc_gruppo_oper");
  blocca(grd, u"desc_gruppo_chiavi");
  blocca(grdG, u"giorno_data");
}

bool frm_fascie_orarie::riempi_liste() {
  Connection& c = db_.connessione_db;
  if (!griglia_.popola(c, carica_fasce()) || !griglia_g_.popola(c, carica_giorni())) return false;
  for (int riga = 0; riga < grdG.Rows(); ++riga) scrivi_giorno(riga);
  return true;
}

/// The weekday of a full date. A day of every year has none, nor has a date that there isn't.
void frm_fascie_orarie::scrivi_giorno(int riga) {
  const int anno = numero(grdG, riga, u"AAAA");
  const QDate data(anno, numero(grdG, riga, u"MM"), numero(grdG, riga, u"GG"));
  const bool valida = data.isValid() && anno >= 100 && anno <= 9999;
  grdG.imposta_cella(riga, u"giorno_data",
                     valida ? servizi_.traduttore.traduci(nome_giorno(data.dayOfWeek())) : QString());
}

void frm_fascie_orarie::grd_Change(int riga, int colonna) {
  griglia_attiva = attiva_fasce;
  if (colonna == grd.colonna(u"gruppo_oper"))
    copia_descrizione(grd, riga, u"gruppo_oper", u"desc_gruppo_oper", drpGruOper);
  if (colonna == grd.colonna(u"gruppo_chiavi"))
    copia_descrizione(grd, riga, u"gruppo_chiavi", u"desc_gruppo_chiavi", drpGruChiavi);
}

void frm_fascie_orarie::grdG_Change(int riga) {
  griglia_attiva = attiva_giorni;
  scrivi_giorno(riga);
}

void frm_fascie_orarie::drpGiorni_CloseUp(int voce) {
  SSOleDBGrid& attiva = griglia_attiva == attiva_fasce ? grd : grdG;
  attiva.imposta_cella(attiva.Row(), u"giorno", drpGiorni.voci()[static_cast<size_t>(voce)].value(0));
}

void frm_fascie_orarie::drpGruChiavi_CloseUp(int voce) {
  grd.imposta_cella(grd.Row(), u"desc_gruppo_chiavi",
                    drpGruChiavi.voci()[static_cast<size_t>(voce)].value(1));
}

void frm_fascie_orarie::drpGruOper_CloseUp(int voce) {
  grd.imposta_cella(grd.Row(), u"desc_gruppo_oper", drpGruOper.voci()[static_cast<size_t>(voce)].value(1));
}

void frm_fascie_orarie::Command5_Click() {
  const Attesa attesa(*this);
  Connection& c = db_.connessione_db;
  // Bands that stay as they were have had their effect today already; others have had none.
  EsecuzioniFasce esecuzioni;
  FasceCambiate cambiate(db_, servizi_.traduttore, orologio_.adesso().date());
  TabellaDaLista fasce{griglia_, u"delete from fascie_orarie"_s, u"select * from fascie_orarie"_s};
  fasce.prima = [&] {
    Errore e = cambiate.leggi_prima();
    return e.fallito() ? e : esecuzioni.leggi(c);
  };
  fasce.completa = [&](Recordset& rs, int) { (void)esecuzioni.ridai(rs); };
  TabellaDaLista giorni{griglia_g_, u"delete from giorni_particolari"_s,
                        u"select * from giorni_particolari"_s};
  giorni.dopo = [&] { return cambiate.accoda(); };
  if (!sostituisci_tabelle(c, {fasce, giorni})) return;
  avvisa(servizi_.traduttore, servizi_.messaggi, u"Registrazione conclusa!"_s);
}

}  // namespace lokera
