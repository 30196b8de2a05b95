#pragma once

#include <map>
#include <utility>

#include "platform/spreadsheet.h"

namespace lokera::simulazione {

/// Books that are kept in memory, to be looked at.
class VirtualSpreadsheet : public Spreadsheet {
 public:
  struct Cella {
    ValoreFoglio valore;
    bool grassetto = false;
    bool operator==(const Cella&) const = default;
  };
  struct Colonna {
    double larghezza = 0;
    Workbook::Allineamento allineamento = Workbook::Allineamento::sinistra;
    bool operator==(const Colonna&) const = default;
  };
  struct Libro {
    std::map<std::pair<int, int>, Cella> celle;  ///< by row and column
    std::map<int, Colonna> colonne;
  };

  std::unique_ptr<Workbook> nuovo(const QString& file) override;

  std::map<QString, Libro> salvati;  ///< by file
  QString guasto;                    ///< what `salva` is to fail with
};

}  // namespace lokera::simulazione
