#pragma once

#include "platform/spreadsheet.h"

namespace lokera {

/// Books as .xlsx files. The rows go to a temporary file in the book's own folder as they come, so a sheet of
/// a million of them takes a few megabytes of memory.
class XlsxSpreadsheet : public Spreadsheet {
 public:
  std::unique_ptr<Workbook> nuovo(const QString& file) override;
};

}  // namespace lokera
