#pragma once

#include <functional>

#include "forms/traduttore.h"
#include "platform/desktop.h"
#include "platform/polled_wait.h"
#include "store/connection.h"

namespace lokera {

/// The patience of the start: another console may hold the file's lock for a while.
class AttesaBlocco {
 public:
  AttesaBlocco(Connection& connessione, PolledWait& attesa, Desktop& desktop, Traduttore& traduttore)
      : connessione_(connessione), attesa_(attesa), desktop_(desktop), traduttore_(traduttore) {}

  /// Calls `tentativo` until it fails for something else than a lock, or succeeds, for 30 seconds at most,
  /// and returns what the last call gave. Whoever is kept waiting for more than half a second is told so. The
  /// event loop runs between the calls, and meanwhile no statement of the connection waits for a lock.
  Errore riprova(const std::function<Errore()>& tentativo);

 private:
  Connection& connessione_;
  PolledWait& attesa_;
  Desktop& desktop_;
  Traduttore& traduttore_;
};

}  // namespace lokera
