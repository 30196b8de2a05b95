#pragma once

#include <QString>

#include "platform/letterali.h"

namespace lokera {

/// Returns the statement in the form that the database named by `tipo_database` runs, upper case throughout:
/// the apostrophes that are text inside a literal are doubled, found from the shape of the statement alone.
/// `errore`, when given, receives the message of a statement that the "ORACLE" dialect can't convert.
QString converti_sql(const QString& statement, const QString& tipo_database = u"Access"_s,
                     QString* errore = nullptr);

}  // namespace lokera
