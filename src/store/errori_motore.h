#pragma once

#include <sqlite3.h>

#include "store/errore.h"

namespace lokera {

/// The last failure of the engine, in words for the person at the desk.
Errore errore_motore(sqlite3* db, int codice);

}  // namespace lokera
