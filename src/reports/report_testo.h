#pragma once

#include "reports/elenco_mostrato.h"
#include "reports/file_scritto.h"
#include "reports/testata_report.h"

namespace lokera {

/// A list as lines of fixed width for a line printer, page after page of a given number of lines.
class ReportTesto {
 public:
  /// A page holds the head and one row at least, whatever `righe_per_pagina` says.
  ReportTesto(const SSOleDBGrid& grd, TestataReport testata, int righe_per_pagina, FileScritto& file);

  int righe() const { return elenco_.righe(); }
  /// Writes the row, counted from 0, and before it the head where a page begins. One after the other.
  void scrivi(int riga);

 private:
  void testata();
  QString linea(const std::function<QString(size_t colonna)>& cella) const;
  QString filo(bool diviso) const;
  void scrivi(const QString& linea);

  ElencoMostrato elenco_;
  const TestataReport testata_;
  const int righe_per_pagina_;
  FileScritto& file_;
  std::vector<qsizetype> larghezze_;  ///< characters
  qsizetype larghezza_ = 1;           ///< of the report
  int pagina_ = 0;
  int scritte_ = 0;  ///< lines of the page
};

/// What a file of printer settings says: the number behind its first 14 characters, of the 17 that count.
/// Nothing when the file is missing, or there is no such number.
std::optional<QString> righe_da_configurazione(const QString& file);

}  // namespace lokera
