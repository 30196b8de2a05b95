#pragma once

#include "store/connection.h"

namespace lokera {

// The files that a cabinet reads from its memory card. Each returns what went wrong, in the words of the
// computer or the store; empty when all went well. From a table without rows no file is written, and one that
// is there stays; so it does after a failure.

/// Whether a key's line is its position for every key. A key's place for the cabinet is its line, and the
/// masks count places from 1: where that isn't so, a mask may speak of another key.
Esito<bool> righe_come_posizioni(Connection& connessione);

/// KEYS.TXT: a key's code on each line, in the order of the positions.
QString scrivi_chiavi(Connection& connessione, const QString& file);
/// USERS.TXT: a card's code and mask on each line. The positions of this mask count from 1, so a key at 0 has
/// no bit; no time band counts. A card on its way out of the registry has an empty mask.
QString scrivi_tessere(Connection& connessione, const QString& file);

}  // namespace lokera
