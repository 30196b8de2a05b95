#pragma once

#include "forms/ricerca_in_lista.h"
#include "reports/servizi_stampa.h"

namespace lokera {

/// Every key, and who has it: within a cabinet those that are in come first.
class frm_sitKey : public Finestra {
 public:
  frm_sitKey(const ServiziStampa& servizi);

  void Form_Load() override;
  /// What is still being filled isn't printed.
  void attesa_cambiata() override { Command1.Enabled = !in_attesa(); }
  void Command1_Click();  ///< "Stampa"

  SSOleDBGrid grd;
  RicercaInLista ricerca;
  Label lblTrovati;
  CommandButton Command1;

 private:
  void mostra_quante();
  bool fuori(int riga) const;

  const ServiziStampa servizi_;
  griglia griglia_;
  int operatore_ = -1, status_ = -1;  ///< their columns
};

}  // namespace lokera
