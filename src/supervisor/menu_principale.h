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

  // "Tabelle": users and their cards, keys, cabinets, time bands.
  Menu mnuTab, ut, mnuUtenti, mnuGruUtenti, mnuOperatori, chia, mnuTesCh, mnuGru, mnuParLok, mnuFascie;
  // "Movimenti": the views and the visit at once.
  Menu mnuMov, mnuVediMov, mnuSitkey, mnuScarTrans;
  // "Utilities": the cabinet's memory card, translations, update of the file, support.
  Menu mnuUtilities, mnuMemSD, mnuImport, mnuExport, mnuTrad, mnuAggDB, mnuTeleAssist;
  Menu mnuEsc;  ///< "Fine Lavoro"

  // The two card windows are never open side by side: the second gets a message instead.
  void mnuUtenti_Click();
  void mnuTesCh_Click();
  void mnuParLok_Click();
  void mnuAggDB_Click();  ///< migrates the file; what fails of it is not told
  void mnuTeleAssist_Click();
  /// Ends the program, unless `si_puo_finire` says no.
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
