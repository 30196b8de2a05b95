#pragma once

#include "cards/frm_tessere_operatori.h"
#include "simulation/giornata/mano.h"

namespace lokera::simulazione {

/// Somebody at the window of the cards: one move at a time, each a button or two.
class ManoTessere {
 public:
  ManoTessere(Mano& mano, frm_tessere_operatori& finestra) : m_(mano), f_(finestra) {}

  void mossa();

 private:
  void nuova();
  void modifica();
  void cambia();
  void elimina();
  void altro();
  void registra();
  void scegli_riga();
  void gruppi_a_caso();
  void date_a_caso();
  QString codice();
  QString giorno(qint64 da_oggi) const;
  TesseraAttesa dai_campi() const;
  QString corrente() const { return f_.grd.cella(f_.grd.Row(), u"codice"); }

  Mano& m_;
  frm_tessere_operatori& f_;
};

}  // namespace lokera::simulazione
