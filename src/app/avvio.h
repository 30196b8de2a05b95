#pragma once

#include <QString>
#include <QTranslator>

#include <memory>

#include "adapters/base/istanza_unica.h"
#include "adapters/real_machine.h"
#include "app/schermo_console.h"

namespace lokera {

/// The look of the application; before its first window.
void prepara_aspetto();

/// A console on this computer with its database in a folder, and its screen. The application must exist.
class Avvio {
 public:
  /// `disponibile`: where windows may stand; empty for the free part of the primary screen.
  explicit Avvio(const QString& cartella, const QRect& disponibile = {});

  /// Opens the database and makes the main window. False when the program has to end.
  bool apri();
  /// Loads the main window; runs the loop.
  void carica() { console_.principale().Form_Load(); }

  Console& console() { return console_; }
  SchermoConsole& schermo() { return *schermo_; }

 private:
  void testi_di_qt();

  const QString cartella_;
  const QRect disponibile_;
  RealMachine macchina_;
  std::unique_ptr<IstanzaUnica> istanza_;  ///< held from `apri` to the end of the process
  Console console_;
  std::unique_ptr<SchermoConsole> schermo_;
  QTranslator testi_;
};

}  // namespace lokera
