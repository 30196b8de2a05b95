#pragma once

#include "forms/griglia.h"
#include "platform/desktop.h"

namespace lokera {

/// The users of the program. A user is chosen in the list and edited in the boxes beside it; while an edit
/// isn't stored the list can't be left for another user.
class frm_operatori : public Finestra {
 public:
  frm_operatori(ElencoFinestre& elenco, Connection& archivio, ServiziGriglia& servizi, Desktop& desktop);

  enum class Stato { consultazione, modifica, nuovo };

  void Form_Load() override;
  void Command1_Click();  ///< save
  void Command2_Click();  ///< leave the edit
  void Command3_Click();  ///< delete
  void Command4_Click();  ///< edit
  void Command5_Click();  ///< new user
  void grd_RowColChange();
  /// The buttons and boxes that go with the state.
  void abilita_comandi(Stato stato);

  SSOleDBGrid grd;
  Label lblUser, lblPwd, lblConfermaPwd;
  TextBox txtUser, txtPwd, txtConfermaPwd;
  CheckBox Check1;
  CommandButton Command5, Command4, Command1, Command2, Command3;

 private:
  void collega_eventi();
  void maschera_password();
  void svuota_password();
  void ricarica(QString utente = {});  // by value: the boxes change meanwhile
  Errore registra();
  Errore elimina();

  Connection& archivio_;
  ServiziGriglia& servizi_;
  Desktop& desktop_;
  griglia griglia_;
  Stato stato_ = Stato::consultazione;
};

}  // namespace lokera
