#include "reports/frm_sitkey.h"

#include "forms/celle_nominate.h"
#include "forms/prepara_liste.h"
#include "reports/frm_print.h"

namespace lokera {

namespace {

constexpr const char16_t* colonne_nascoste[] = {u"operatore"};

QString elenco_chiavi() {
  return u"select tessere_chiavi.*, tessere_operatori.intestazione from (tessere_chiavi left join "
         "tessere_operatori on tessere_chiavi.operatore = tessere_operatori.codice)  order by "
         "tessere_chiavi.lokera, tessere_chiavi.operatore, tessere_chiavi.descrizione"_s;
}

}  // namespace

frm_sitKey::frm_sitKey(const ServiziStampa& servizi)
    : Finestra(servizi.elenco, u"frm_sitKey"_s),
      grd(*this, u"grd"_s),
      ricerca(grd, servizi.griglie.traduttore,
              {u"codice"_s, u"descrizione"_s, u"operatore"_s, u"intestazione"_s}),
      lblTrovati(*this, u"lblTrovati"_s),
      Command1(*this, u"Command1"_s, u"Stampa"_s),
      servizi_(servizi),
      griglia_(grd, servizi.griglie) {
  grd.OrdinabileDaTestata = true;
  grd.ActiveRowStyleSet = u"bold"_s;
  grd.RowLoaded = [this](int riga, AspettoRiga& aspetto) {
    aspetto.stile = fuori(riga) ? u"OUT"_s : u"IN"_s;
    if (status_ >= 0) aspetto.celle.emplace_back(status_, aspetto.stile);
  };
  Command1.Click = [this] { Command1_Click(); };
}

bool frm_sitKey::fuori(int riga) const {
  return !grd.cella(riga, operatore_).trimmed().isEmpty();
}

void frm_sitKey::Form_Load() {
  prepara_liste(*this, servizi_.griglie, servizi_.archivio, u"Situazione Chiavi"_s,
                {{griglia_, elenco_chiavi()}});
  completa_colonne(grd, colonne_nascoste, false);
  operatore_ = grd.colonna(u"operatore");
  status_ = grd.colonna(u"status");
  if (griglia_.popola(servizi_.archivio, elenco_chiavi())) mostra_quante();
}

void frm_sitKey::mostra_quante() {
  int uscite = 0;
  for (int i = 0; i < grd.Rows(); ++i) uscite += fuori(i) ? 1 : 0;
  lblTrovati.Caption =
      servizi_.griglie.traduttore.traduci(u"chiavi: %1, di cui uscite: %2"_s).arg(grd.Rows()).arg(uscite);
}

void frm_sitKey::Command1_Click() {
  stampa_elenco(servizi_, grd);
}

}  // namespace lokera
