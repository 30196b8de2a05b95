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
};

/// Lowers brackets, # dates, `top n`, the parentheses that group joins from the left, and the column types of
/// definitions; a comment becomes a blank. The rest stays as it is. Fails on a literal or a column type that
/// can't be understood.
Esito<Abbassata> abbassa(QStringView sql);

}  // namespace lokera
