#pragma once

#include "forms/griglia.h"
#include "platform/clock.h"

namespace lokera {

/// The time bands (`grd`) and the special days (`grdG`) side by side. Nothing reaches the database until
/// `Command5`, which replaces both tables as a whole and queues the cards whose bands of today it changes.
class frm_fascie_orarie : public Finestra {
 public:
  frm_fascie_orarie(ElencoFinestre& elenco, Database& db, ServiziGriglia& servizi, const Clock& orologio);

  void Form_Load() override;
  void Command5_Click();  ///< "registra modifiche"
  void drpGiorni_CloseUp(int voce);
  void drpGruChiavi_CloseUp(int voce);
  void drpGruOper_CloseUp(int voce);
  void grd_Change(int riga, int colonna);
  void grdG_Change(int riga);

  QChar griglia_attiva = u' ';  ///< the list the user is in: "G" for `grd`, "P" for `grdG`

  SSOleDBGrid grd, grdG;
  SSOleDBDropDown drpGruOper, drpGruChiavi, drpGiorni, drpGiorniG;
  Label lblOgniAnno;
  CommandButton Command5;

 private:
  void collega_eventi();
  void imposta_colonne();
  bool riempi_liste();
  void riempi_elenchi();
  void scrivi_giorno(int riga);

  Database& db_;
  ServiziGriglia& servizi_;
  const Clock& orologio_;
  griglia griglia_, griglia_g_;
};

}  // namespace lokera
