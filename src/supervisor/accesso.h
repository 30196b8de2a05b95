#pragma once

#include <functional>

#include "forms/controlli.h"
#include "forms/traduttore.h"
#include "link/sessione_slave.h"
#include "platform/clock.h"
#include "platform/dialogs.h"
#include "store/database.h"

namespace lokera {

/// The login panel of the main window. It guards the menus only.
class Accesso {
 public:
  Accesso(Finestra& finestra, Database& db, const Clock& orologio, Traduttore& traduttore,
          MessageBox& messaggi, const SessioneSlave& slave);

  /// Shows the panel with the last user of this computer, or logs out.
  void mnuAbile_Click();
  /// "accedi". A wrong name or password gets its message, which runs the loop, and leaves no password behind.
  void cmdLogin_Click();
  void Command6_Click();  ///< "annulla"

  bool accesso_abilitato = false;  ///< somebody is logged in
  /// Who; one blank for nobody.
  QString utente() const { return accesso_abilitato ? txtUtente.Text().trimmed() : u" "_s; }
  /// Makes the locked menus available or not.
  std::function<void(bool)> abilita_menu;

  Menu mnuAbile;
  SSPanel pctLogin;
  Label lblUtente, lblPassword;
  TextBox txtUtente, txtPassword;
  CommandButton cmdLogin, Command6;

 private:
  /// Who logged in last on this computer; empty when nobody has.
  QString ultimo_utente() const;
  bool utente_di_servizio(const QString& password) const;
  enum class Verifica { buona, sconosciuto, password_errata };
  Esito<Verifica> verifica_utente(const QString& password);
  void entra();
  void esci();

  Database& db_;
  const Clock& orologio_;
  Traduttore& traduttore_;
  MessageBox& messaggi_;
  const SessioneSlave& slave_;
};

}  // namespace lokera
