#pragma once

#include <functional>

#include "access/giorno.h"
#include "platform/polled_wait.h"
#include "store/database.h"

namespace lokera {

/// The scheduled effect of the time bands: when one opens or has closed, every card that it touches goes into
/// the push queue, once for each cabinet concerned.
class FasceOrarie {
 public:
  FasceOrarie(Database& db, PolledWait& attesa, Giorno& giorno);

  /// Looks at today's bands. Works in short stretches and runs the loop between them, with nothing held; a
  /// call that comes meanwhile does nothing. The bands count as handled only once all their cards are queued,
  /// so what an error or the end of the program cuts short is done again at the next run; false after an
  /// error.
  bool applica_fasce_orarie();

  std::function<void(const Errore&)> segnala;

 private:
  Database& db_;
  PolledWait& attesa_;
  Giorno& giorno_;
  bool in_corso_ = false;
};

}  // namespace lokera
