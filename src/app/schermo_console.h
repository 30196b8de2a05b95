#pragma once

#include <functional>

#include "supervisor/console.h"
#include "windows/schermo.h"

namespace lokera {

/// The windows of a console on a screen. The console, opened already, outlives it.
class SchermoConsole {
 public:
  /// `disponibile`: where windows may stand; empty for the free part of the primary screen.
  explicit SchermoConsole(Console& console, const QRect& disponibile = {});
  ~SchermoConsole();
  SchermoConsole(const SchermoConsole&) = delete;
  SchermoConsole& operator=(const SchermoConsole&) = delete;

  QWidget* forma(const Finestra& finestra) const { return schermo_.forma(finestra); }
  Collegamento* collegamento(const Finestra& finestra) const { return schermo_.collegamento(finestra); }

  /// Just before the main window shows itself, the language being known.
  std::function<void()> PrimaDiMostrare;

 private:
  Console& console_;
  Schermo schermo_;
};

}  // namespace lokera
