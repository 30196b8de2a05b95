#pragma once

#include <QString>

#include <deque>
#include <memory>
#include <vector>

#include "simulation/cabinet/cabinet_server.h"

namespace lokera::simulazione {

/// Exactly who wants what and when. One a line, fields separated by tabs, empty lines and "#" as in a site
/// file:
///
///   ms  cabinet  card  key  P|R  completa|rinuncia  [label]
///
/// `ms` counts from the start of the scenario. A key "-" means that the card is only shown. Without a label
/// the line's number stands in the ledger.
struct RigaRichiesta {
  qint64 ms = 0;
  QString cabinet;
  Richiesta richiesta;
};

/// What was wrong with a file, with its line; empty when nothing was.
QString leggi_richieste(QByteArrayView testo, std::vector<RigaRichiesta>& righe);

/// Plays the lines of one cabinet, in the order of their times. A line waits while the cabinet is occupied,
/// and at a managed cabinet until the console has connected.
class Copione {
 public:
  Copione(CabinetServer& cabinet, const Clock& clock, TimerFactory& timer, std::vector<RigaRichiesta> righe);

  void inizia();
  bool finito() const { return coda_.empty() && !in_corso_; }

 private:
  void passo();
  void programma();

  CabinetServer& cabinet_;
  const Clock& clock_;
  std::unique_ptr<Timer> timer_;
  std::deque<RigaRichiesta> coda_;
  Monotonic inizio_{};
  bool in_corso_ = false;
  std::shared_ptr<bool> esiste_ = std::make_shared<bool>(true);  // an operation may end after its script
};

}  // namespace lokera::simulazione
