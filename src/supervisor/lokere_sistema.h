#pragma once

#include <vector>

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

  /// Reads them; with none there is no current cabinet. After a failure what was read before stands.
  Errore leggi();

  /// Whether this computer looks after any.
  bool cabinet_controllate() const { return ciclo_.grdLokere.Rows() > 0; }
  /// Whether the first cabinet asks this console for its decisions.
  bool gestita() const { return gestita_; }
  bool modo_slave() const { return pannello_.modo_slave; }

 private:
  void imposta_prima(const Recordset& rs);
  void nessuna();
  void traduci_principale();
  Errore elenca(Recordset& rs);

  Database& db_;
  Traduttore& traduttore_;
  frm_Main& principale_;
  PannelloLive& pannello_;
  CicloDownload& ciclo_;
  const SessioneSlave& slave_;
  std::vector<Label*> dati_;  ///< labels of the main window that had no wording when they were made
  bool gestita_ = false;
  bool tradotta_ = false;  ///< once: a second time would take the translations for Italian
};

}  // namespace lokera
