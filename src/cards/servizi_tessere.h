#pragma once

#include "cards/lettore_tavolo.h"
#include "forms/griglia.h"
#include "link/sessione_download.h"

namespace lokera {

/// What the two card windows use of the console.
struct ServiziTessere {
  Connection& archivio;
  ServiziGriglia& griglie;
  SessioneDownload& sessione;
  Timer& timerOrario;  ///< of the main window: off while one of them is open
  InputBox& domande;
  ServiziLettore lettore;
};

}  // namespace lokera
