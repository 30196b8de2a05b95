#pragma once

#include "forms/didascalie.h"
#include "forms/ricerca_in_lista.h"
#include "forms/ss_ole_db_combo.h"
#include "reports/servizi_stampa.h"

namespace lokera {

/// The log of withdrawals and returns, searched by card, key and days. Empty until the first search.
class frm_movimenti : public Finestra {
 public:
  frm_movimenti(const ServiziStampa& servizi);

  void Form_Load() override;
  /// What is still being filled isn't printed.
  void attesa_cambiata() override { Command2.Enabled = !in_attesa(); }
  void Command1_Click();  ///< "ricerca"
  void Command2_Click();  ///< "stampa"

  SSOleDBCombo cmbOper, cmbChiavi;
  MaskEdBox txtDal, txtAl;
  CommandButton Command1;
  SSOleDBGrid grd;
  RicercaInLista ricerca;
  Label lblTrovati;
  CommandButton Command2;

 private:
  void prepara_filtri();
  QString trovati();
  void riempi(SSOleDBCombo& elenco, const QString& sql, const QString& descrizione);

  const ServiziStampa servizi_;
  Didascalie didascalie_;
  griglia griglia_;
  int operazione_ = -1;  ///< its column
};

}  // namespace lokera
