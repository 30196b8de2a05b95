#pragma once

#include <array>

#include "platform/printer.h"

namespace lokera {

/// Texts measured for a column. Plain letters are measured once each, so that a report of thousands of rows
/// asks the printer for few of its texts.
class MisuraTesto {
 public:
  MisuraTesto(const Printer& stampante, const Carattere& carattere);

  /// Twips.
  int larghezza(const QString& testo) const;
  /// The longest beginning of the text that is no wider, whole characters only.
  QString taglia(const QString& testo, int spazio) const;
  int altezza() const { return altezza_; }

 private:
  bool ci_sta(const QString& testo, int somma, int spazio) const;

  const Printer& stampante_;
  const Carattere carattere_;
  const int altezza_;
  /// Of the letters of Latin scripts, the usual accented ones too, ten in a row: a tenth of a twip counts in
  /// a long text.
  std::array<int, 256> decimi_{};
};

}  // namespace lokera
