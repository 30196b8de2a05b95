#pragma once

#include <QByteArrayView>
#include <QDateTime>
#include <QString>

#include <memory>
#include <variant>

namespace lokera {

/// What stands in a cell of a spreadsheet. A moment is shown with date and time, a date as a date. A view is
/// a text in UTF-8.
using ValoreFoglio = std::variant<QString, double, QDate, QDateTime, QByteArrayView>;

/// Where a cell may stand and what it may hold, `scritta` being the last row that was written to.
bool ammesso_nel_foglio(int riga, int colonna, int scritta, const ValoreFoglio& valore);

/// A book with one sheet that is written from its top to its bottom and never held as a whole. Rows and
/// columns count from 1. A book that is destroyed without having been saved leaves no file behind.
class Workbook {
 public:
  enum class Allineamento { sinistra, centro, destra };

  virtual ~Workbook() = default;

  /// `larghezza`: in characters of the sheet's font. Before the column's first cell.
  virtual void colonna(int numero, double larghezza, Allineamento allineamento) = 0;

  /// Whether it could be written: a row above the last one that was written to, a place outside of the sheet
  /// (it has 1048576 rows), a text of more than 32767 characters and a date before 1900 can't.
  virtual bool scrivi(int riga, int numero_colonna, const ValoreFoglio& valore, bool grassetto = false) = 0;

  /// Puts the file in its place, where it replaces an older one; nothing may be written after it. What went
  /// wrong, for a person to read; empty when the file stands.
  virtual QString salva() = 0;
};

/// The maker of spreadsheets.
class Spreadsheet {
 public:
  virtual ~Spreadsheet() = default;
  /// A book to be saved as `file`, a name that ends in ".xlsx". A file that can't be made is told by `salva`.
  virtual std::unique_ptr<Workbook> nuovo(const QString& file) = 0;
};

}  // namespace lokera
