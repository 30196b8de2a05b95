#pragma once

#include <QString>

namespace lokera {

/// `top` and joins written as that server's conditions, in sub-selects too. `errore` receives the message of
/// a join that can't be read; the statement then comes back as it was.
QString struttura_oracle(const QString& statement, QString& errore);

/// Comparisons without regard to case, dates and functions as that server has them, apostrophes repaired.
QString condizioni_oracle(const QString& statement);

}  // namespace lokera
