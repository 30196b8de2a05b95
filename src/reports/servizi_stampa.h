#pragma once

#include <functional>
#include <memory>

#include "forms/griglia.h"
#include "platform/clock.h"
#include "platform/desktop.h"
#include "platform/printer.h"
#include "platform/spreadsheet.h"

namespace lokera {

/// What prints and exports stand on; all of it outlives the windows.
struct ServiziStampa {
  ElencoFinestre& elenco;
  Connection& archivio;
  ServiziGriglia& griglie;
  const Clock& orologio;
  Printer& stampante;
  Spreadsheet& fogli;
  InputBox& domande;
  Desktop& desktop;
  QString documenti;                                    ///< folder of what is written for the person
  QString programma;                                    ///< the program's folder
  std::function<QString()> utente;                      ///< who is logged in; one blank for nobody
  std::function<void(std::unique_ptr<Finestra>)> apri;  ///< shows a window of the caller's making
};

}  // namespace lokera
