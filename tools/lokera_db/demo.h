#pragma once

#include <QString>

#include "store/connection.h"

namespace lokera {

/// Fills a newly made file with a site that shows what the console does: three cabinets of this computer on
/// loopback addresses, the first one managed live, keys, cards, groups, bands and special days. The same rows
/// every time, but for the
/// validities, which lie around today, and the computer's name.
Errore riempi_demo(Connection& connessione);

}  // namespace lokera
