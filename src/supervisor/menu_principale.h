#pragma once

#include <functional>

#include "forms/controlli.h"
#include "forms/traduttore.h"
#include "platform/desktop.h"
#include "platform/dialogs.h"
#include "store/database.h"

namespace lokera {

/// The menu tree of the main window, but for the entry of the login.
class MenuPrincipale {
 public:
  MenuPrincipale(Finestra& finestra, Database& db, const ElencoFinestre& finestre, Traduttore& traduttore,
                 MessageBox& messaggi, Desktop& desktop, Program& programma);

  Menu mnuTab, ut, mnuUtenti, mnuGruUtenti, mnuOperatori, chia, mnuTesCh, mnuGru, mnuParLok, mnuFascie;
  Menu mnuMov, mnuVediMov, mnuSitkey, mnuScarTrans;
  Menu mnuUtilities, mnuMemSD, mnuImport, mnuExport, mnuTrad, mnuAggDB, mnuTeleAssist;
  Menu mnuEsc;

  void mnuUtenti_Click();
  void mnuTesCh_Click();
  void mnuParLok_Click();
  void mnuAggDB_Click();
  void mnuTeleAssist_Click();
  void mnuEsc_Click();

  /// The three menus that a login unlocks.
  void abilita(bool abilitati);

  /// Opens the window of that name, non-modal; one that is open already comes to the front. Set by the owner.
  std::function<void(const QString& nome)> apri_finestra;
  std::function<void()> chiudi_download;  ///< closes `wskDownload`
  /// Asked before the program ends; may show a box, and so run the loop.
  std::function<bool()> si_puo_finire;

 private:
  void apri(const QString& nome) {
    if (apri_finestra) apri_finestra(nome);
  }
  void apre(Menu& voce, const char16_t* finestra);
  void non_valida(const QString& testo);

  Database& db_;
  const ElencoFinestre& finestre_;
  Traduttore& traduttore_;
  MessageBox& messaggi_;
  Desktop& desktop_;
  Program& programma_;
};

}  // namespace lokera
