#pragma once

#include <functional>
#include <map>
#include <set>
#include <vector>

#include "forms/lettura_a_tratti.h"
#include "ledger/coda_tessere.h"

namespace lokera {

/// Pairs of groups: for each operator group the key groups.
using GruppiDiFascia = std::map<qlonglong, std::set<qlonglong>>;

/// Whom time bands concern: every card of an operator group that may use one of its key groups, for every
/// cabinet that holds a key of that.
class TessereDiFascia {
 public:
  explicit TessereDiFascia(Connection& connessione) : c_(connessione) {}

  /// Adds those of these pairs of groups. Between two stretches of the reading nothing of the file is held:
  /// whenever `finito` says that one has lasted long enough, `respira` runs. Without them it reads in one go.
  Errore cerca(const GruppiDiFascia& gruppi, const std::function<bool()>& finito = {},
               const std::function<void()>& respira = {});

  /// Each pair once, in the order of the codes, so that queueing them writes to few places of the file.
  const std::vector<TesseraInLokera>& coppie();

 private:
  Errore cerca_tratto(LetturaATratti& lettura, const std::set<qlonglong>& gruppi_chiavi,
                      const std::function<bool()>& finito);
  Errore aggiungi(const QString& tessera, qlonglong gruppo_chiavi);
  Esito<std::vector<qlonglong>> leggi_lokere(qlonglong gruppo_chiavi);

  Connection& c_;
  std::map<qlonglong, std::vector<qlonglong>> lokere_;  ///< the cabinets that hold keys of each key group
  std::vector<TesseraInLokera> coppie_;
};

}  // namespace lokera
