#pragma once

#include <iterator>

#include "forms/controlli.h"
#include "simulation/giornata/registri_attesi.h"
#include "simulation/giornata/sito_giornata.h"

namespace lokera::simulazione {

/// A person's hand in a window: chance, the site, and what that person knows.
struct Mano {
  Caso& caso;
  SitoGiornata& sito;
  VirtualMachine& vm;
  RegistriAttesi& attesi;
  std::function<void(const QString&)> errata;  ///< a window did what it must not
  QString sospesa;                             ///< the key being edited whose registration failed
  int nuovi = 0;                               ///< codes given out

  /// Groups of keys beyond those that have bands; their keys come and go.
  static constexpr int gruppi_chiavi = SitoGiornata::gruppi_chiavi + 2;

  /// The button is on, and its window has not been closed in the middle of the move before.
  static bool si_preme(const CommandButton& bottone) {
    return bottone.Enabled() && !bottone.finestra().chiusa();
  }

  /// What the boxes said meanwhile; nothing happens when it can't be pressed.
  QStringList premi(CommandButton& bottone) {
    const qsizetype prima = vm.messaggi().mostrati.size();
    if (si_preme(bottone)) bottone.Click();
    return vm.messaggi().testi().mid(prima);
  }

  template <class Tutti>
  auto uno_di(const Tutti& tutti) {
    return *std::next(tutti.begin(), static_cast<qsizetype>(caso.sotto(tutti.size())));
  }

  qlonglong gruppo_chiavi() { return caso.fra(1, gruppi_chiavi); }

  /// A code that nothing ever had, without a zero.
  QString codice_nuovo(bool chiave) {
    const int i = 5000 + nuovi++;
    return chiave ? SitoGiornata::codice_chiave(i) : SitoGiornata::codice_tessera(i);
  }
};

}  // namespace lokera::simulazione
