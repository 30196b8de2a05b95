#pragma once

#include "forms/query_divisa.h"
#include "store/recordset.h"

namespace lokera {

/// The rows of a query, read in stretches between which nothing of the file is held, so that others can write
/// to it. A row that stays as it is comes exactly once, whatever others write between the stretches.
class LetturaATratti {
 public:
  LetturaATratti(Connection& connessione, const QString& sql, QVariantList valori);

  /// Begins, or goes on where it was broken off.
  Errore apri();
  /// Its columns are those of the query, then some of no interest.
  Recordset& righe() { return rs_; }
  /// To be called before the step to the row that `sospendi` is tried at.
  void annota();
  /// Closes the query before its current row, if that can be found again. When it can't, false: then the
  /// reading must go on, at least to the next row.
  bool sospendi();
  bool sospesa() const { return sospesa_; }

 private:
  int identita() const;  ///< its column
  QVariant valore(int colonna) const;

  Connection& connessione_;
  const QString sql_;
  const QVariantList valori_;
  std::optional<QueryDivisa> divisa_;
  QVariantList posto_;  ///< of the row to go on with; empty at the beginning
  QByteArray annotata_;
  bool sospesa_ = false;
  Recordset rs_;
};

}  // namespace lokera
