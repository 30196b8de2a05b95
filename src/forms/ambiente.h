#pragma once

#include "forms/finestra.h"
#include "forms/griglia.h"
#include "forms/traduttore.h"
#include "platform/clock.h"
#include "platform/desktop.h"
#include "platform/dialogs.h"
#include "store/database.h"

namespace lokera {

/// What the windows share; all of it lives as long as the console.
struct Ambiente {
  Database& db;
  ElencoFinestre& finestre;
  Traduttore& traduttore;
  MessageBox& messaggi;
  ServiziGriglia& griglie;
  Desktop& desktop;
  const Clock& orologio;
};

}  // namespace lokera
