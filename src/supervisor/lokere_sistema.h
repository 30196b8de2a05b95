#pragma once

#include "access/pannello_live.h"
#include "link/sessione_slave.h"
#include "store/database.h"
#include "store/recordset.h"
#include "supervisor/ciclo_download.h"
#include "supervisor/frm_main.h"

namespace lokera {

/// The cabinets that this computer looks after, as `parametri` has them: the first one gives the panel its
/// times and the program its language, all of them the cycle its list.
class LokereSistema {
 public:
  LokereSistema(Database& db, Traduttore& traduttore, frm_Main& principale, PannelloLive& pannello,
                CicloDownload& ciclo, const SessioneSlave& slave);

  /// Reads them. After a failure what was read before stands.
  Errore leggi();
  /// Before a reading that counts as the first.
  void azzera() { cabinet_controllate = false; }

  /// Whether the first cabinet asks this console for its decisions.
  bool gestita() const { return gestita_; }
  bool modo_slave() const { return pannello_.modo_slave; }
  bool cabinet_controllate = false;

 private:
  void imposta_prima(const Recordset& rs);
  Errore elenca(Recordset& rs);

  Database& db_;
  Traduttore& traduttore_;
  frm_Main& principale_;
  PannelloLive& pannello_;
  CicloDownload& ciclo_;
  const SessioneSlave& slave_;
  bool gestita_ = false;
  bool tradotta_ = false;  ///< once: a second time would take the translations for Italian
};

}  // namespace lokera
