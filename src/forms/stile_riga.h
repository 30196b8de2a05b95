#pragma once

#include <QString>

#include <utility>
#include <vector>

#include "forms/controlli.h"

namespace lokera {

/// A named look of a list's row. No style is told from another by its colour alone, unless a cell of the row
/// says the same in words.
struct StileRiga {
  Colore testo = nero;
  bool grassetto = false;
  bool corsivo = false;
};

/// The style of that name, in any case; the plain look for a name that is none.
StileRiga stile_riga(QStringView nome);

/// How a row shows, worked out when it is about to be drawn.
struct AspettoRiga {
  QString stile;  ///< of every cell; empty for the plain look
  bool grassetto = false;
  std::vector<std::pair<int, QString>> celle;  ///< column and text of cells that the list doesn't hold
};

}  // namespace lokera
