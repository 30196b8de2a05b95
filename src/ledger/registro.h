#pragma once

#include "ledger/movimento.h"
#include "store/connection.h"

namespace lokera {

/// The book of the movements and, with it, who holds which key.
class Registro {
 public:
  explicit Registro(Connection& connessione) : c_(connessione) {}

  /// Books the movement: the key's row and the movement's row in one transaction, committed when the call
  /// returns without a failure. A key that the registry doesn't know is booked all the same.
  Esito<ChiaveRegistrata> registra(const Movimento& movimento);

  /// The name of the card's holder; "Tessera non registrata" for a card that the registry doesn't know.
  Esito<QString> intestazione(const QString& tessera);

 private:
  Esito<ChiaveRegistrata> aggiorna_chiave(const Movimento& movimento);
  Errore aggiungi(const Movimento& movimento);

  Connection& c_;
};

}  // namespace lokera
