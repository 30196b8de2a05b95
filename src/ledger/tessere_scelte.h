#pragma once

#include <QString>
#include <QVariantList>

#include <optional>
#include <span>
#include <vector>

#include "store/connection.h"

namespace lokera {

/// A query and its values, to stand inside a statement.
struct Sottoquery {
  QString sql;
  QVariantList valori;
};

/// Which cards of the registry a pass over the queue concerns, and at which cabinets. Kept as statements, so
/// that a pass over ten thousand cards is a few of them.
class TessereScelte {
 public:
  /// A card at each cabinet that holds a key of one of its groups, or these cards at theirs.
  static TessereScelte ovunque(const QString& tessera) { return ovunque({&tessera, 1}); }
  static TessereScelte ovunque(std::span<const QString> tessere);
  /// The most of them in one go: as many as keep a pass short enough to be one stretch between two events.
  static constexpr size_t al_massimo = 200;
  /// The cards that may use this group of keys, at one cabinet.
  static TessereScelte del_gruppo(qlonglong gruppo, qlonglong lokera);
  static TessereScelte coppia(const QString& tessera, qlonglong lokera);

  const Sottoquery& tessere() const { return tessere_; }  ///< with the column `tessera`
  Sottoquery coppie() const;                              ///< with the columns `tessera` and `lokera`

 private:
  TessereScelte(Sottoquery tessere, std::optional<qlonglong> lokera)
      : tessere_(std::move(tessere)), lokera_(lokera) {}

  Sottoquery tessere_;
  std::optional<qlonglong> lokera_;  ///< without one, each that the card reaches
};

/// The condition, for a statement, that a cabinet holds a key of one of the card's groups; both are columns
/// or
/// "?". The names g and k are its own.
QString tessera_raggiunge(const QString& tessera, const QString& lokera);

/// The cabinets that the card reaches, in rising order.
Esito<std::vector<qlonglong>> lokere_della_tessera(Connection& connessione, const QString& tessera);

}  // namespace lokera
