#pragma once

#include <QString>

#include "store/errore.h"

namespace lokera {

enum class TipoIstruzione { lettura, inserimento, modifica, cancellazione, definizione, altro };

/// A statement of the system's dialect in the form that the engine runs.
struct Abbassata {
  QString sql;
  TipoIstruzione tipo = TipoIstruzione::altro;
  QString tabella;  ///< the table that is written, or the first one that is read; without brackets
  Errore errore;    ///< a literal or a column type that can't be understood
};

/// Lowers brackets, # dates, `top n`, `true` and `false`, "texts" in double quotes, `&`, `delete *`, the
/// parentheses that group joins from the left, and the column types of definitions. The rest stays as it is.
Abbassata abbassa(QStringView sql);

}  // namespace lokera
