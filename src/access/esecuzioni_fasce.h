#pragma once

#include <QDateTime>
#include <QHash>
#include <QString>

#include "store/recordset.h"

namespace lokera {

/// When each time band last had its effect on the cabinets, kept while the table is written anew. A band is
/// the same one as long as its groups, its day and its hours, to the minute, are.
class EsecuzioniFasce {
 public:
  Errore leggi(Connection& connessione);
  /// Gives the band in the current row its moment back; one that wasn't there counts as never run.
  Errore ridai(Recordset& fascia) const;

 private:
  QHash<QString, QDateTime> ultime_;
};

}  // namespace lokera
