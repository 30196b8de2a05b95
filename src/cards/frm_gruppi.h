#pragma once

#include "forms/griglia.h"

namespace lokera {

/// Which list of groups a window keeps.
struct TabellaGruppi {
  QString finestra;  ///< name of the window
  QString titolo;
  QString carica, cancella, salva;  ///< its statements
};

TabellaGruppi gruppi_di_chiavi();
TabellaGruppi gruppi_di_utenti();

/// `frm_gruppi` and `frm_gruppi_utenti`: the groups of keys and those of operators. What stands in the list
/// when the button is pressed is the whole new table.
class frm_gruppi : public Finestra {
 public:
  frm_gruppi(ElencoFinestre& elenco, Connection& archivio, ServiziGriglia& servizi,
             const TabellaGruppi& tabella);

  void Form_Load() override;
  void Command5_Click();  ///< "registra modifiche"

  SSOleDBGrid grd;
  CommandButton Command5;

 private:
  Connection& archivio_;
  ServiziGriglia& servizi_;
  const TabellaGruppi tabella_;
  griglia griglia_;
};

}  // namespace lokera
