#pragma once

#include <QStringList>

#include "simulation/giornata/sito_giornata.h"

namespace lokera::simulazione {

/// What must agree when a day has come to rest, looked up in the database and in the cabinets.
struct Riscontro {
  QStringList differenze;
  int tessere_rimaste = 0;  ///< records at positions that the console holds for free
  int tessere_tornate = 0;  ///< records of cards that are in the registry no more
};

/// Each key row says what the last booked movement of the key says.
void riscontra_chiavi(Connection& c, Riscontro& r);

/// No queue row is left but those of cards that are not in the registry.
void riscontra_coda(Connection& c, Riscontro& r);

/// Every card with a position at a cabinet has its record there, with the mask that the database asks for.
void riscontra_tessere(Connection& c, const SitoGiornata& sito, const QString& giorno, QTime adesso,
                       Riscontro& r);

/// The records of one cabinet as they have to be for some moment of the `minuti` before now.
void riscontra_fasce(Connection& c, const Cabinet& cabinet, int id, const QString& giorno, QTime adesso,
                     int minuti, Riscontro& r);

}  // namespace lokera::simulazione
