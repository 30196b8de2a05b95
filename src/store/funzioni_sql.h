#pragma once

#include <sqlite3.h>

namespace lokera {

/// Gives a newly opened file the collation of the text columns, `like`, and the functions of the statements.
/// Returns the engine's result code.
int registra_funzioni(sqlite3* db);

}  // namespace lokera
