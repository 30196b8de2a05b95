#pragma once

#include <QByteArray>
#include <QString>
#include <QTime>

#include "store/connection.h"

namespace lokera {

/// The plain method: a query for each of the 25 blocks and two more for each key of them. Kept as the
/// yardstick of the fast one, which must give the same digits.
QByteArray maschera_semplice(Connection& connessione, const QString& codice, const QString& giorno,
                             QTime adesso);

}  // namespace lokera
