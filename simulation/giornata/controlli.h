#pragma once

#include <QStringList>

#include "simulation/giornata/sito_giornata.h"

namespace lokera::simulazione {

/// What must agree when a day has come to rest, looked up in the database and in the cabinets.
struct Riscontro {
  QStringList differenze;
};

/// Each key row says what the last booked movement of the key says.
void riscontra_chiavi(Connection& c, Riscontro& r);

/// No card's record is left to be written or deleted anywhere.
bool coda_vuota(Connection& c);

/// Nothing is left to be told to any cabinet, and no mark without its queue row.
void riscontra_coda(Connection& c, Riscontro& r);

/// The cards of `vive` are in the registry; nothing tells of those of `eliminate` any more.
void riscontra_registro(Connection& c, const QStringList& vive, const QStringList& eliminate, Riscontro& r);

/// Every card with a position at a cabinet is in the registry and has its record there, with the mask that
/// the database asks for; no other record is there.
void riscontra_tessere(Connection& c, const SitoGiornata& sito, const QString& giorno, QTime adesso,
                       Riscontro& r);

/// The records of one cabinet as they have to be for some moment of the `minuti` before now.
void riscontra_fasce(Connection& c, const Cabinet& cabinet, int id, const QString& giorno, QTime adesso,
                     int minuti, Riscontro& r);

}  // namespace lokera::simulazione
