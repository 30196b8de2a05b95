#pragma once

#include <QString>

#include <set>
#include <utility>

#include "store/connection.h"

namespace lokera {

/// Card codes, each with a cabinet that its record concerns. In the order of the codes, so that queueing them
/// writes to few places of the file.
using CoppieTessere = std::set<std::pair<QString, qlonglong>>;

/// Adds whom the time bands of a pair of groups concern: every card of the operator group that may use the
/// key group, for every cabinet that holds a key of it.
Errore tessere_di_fascia(Connection& connessione, qlonglong gruppo_oper, qlonglong gruppo_chiavi,
                         CoppieTessere& coppie);

}  // namespace lokera
