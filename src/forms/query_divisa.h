#pragma once

#include <QString>
#include <QVariantList>

#include <optional>

namespace lokera {

/// A query that can be broken off before any of its rows and taken up there again, because its rows have an
/// order that no two share: by its own sorting, then by the identity of the row in its first table.
class QueryDivisa {
 public:
  /// None for a query that sorts downwards or by what isn't a column, that cuts or gathers its rows, or whose
  /// first table is a query itself.
  static std::optional<QueryDivisa> dividi(const QString& sql);

  /// The columns of the place stand behind those of the query; the last of them is the identity.
  qsizetype colonne_posto() const { return posto_.size(); }
  QString dall_inizio() const { return con(QString()); }
  /// The rows from this place on, itself included. Its values that aren't Null are bound behind those of the
  /// query, see `valori`; which of them are Null decides the wording.
  QString dal(const QVariantList& posto) const;
  static QVariantList valori(const QVariantList& posto);

 private:
  QString con(const QString& condizione) const;

  QString colonne_, tabelle_, dove_;
  QStringList posto_;  ///< what the rows are sorted by, the identity last
};

}  // namespace lokera
