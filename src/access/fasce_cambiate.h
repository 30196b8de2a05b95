#pragma once

#include <QDate>
#include <QTime>

#include <map>
#include <set>
#include <utility>

#include "forms/traduttore.h"
#include "store/database.h"

namespace lokera {

/// What a save of the bands and the special days changes for one date. The cabinets that decide alone hold
/// the grants of the bands that were; so every card that a changed pair of groups concerns is queued for each
/// of its cabinets. Both calls belong into the transaction of the save.
class FasceCambiate {
 public:
  FasceCambiate(Database& db, Traduttore& traduttore, QDate data);

  Errore leggi_prima();  ///< before either table is touched
  Errore accoda();       ///< once both are written

 private:
  using Gruppi = std::pair<qlonglong, qlonglong>;   ///< of operators, of keys
  using Orari = std::set<std::pair<QTime, QTime>>;  ///< to the minute, as bands are compared
  using Fasce = std::map<Gruppi, Orari>;

  Esito<Fasce> leggi();

  Database& db_;
  Traduttore& traduttore_;
  const QDate data_;
  Fasce prima_;
};

}  // namespace lokera
