#pragma once

#include "ledger/movimento.h"
#include "store/connection.h"

namespace lokera {

/// Who has a key out, and since when.
struct StatoChiave {
  QString operatore;  ///< one blank while the key is in its cabinet
  QVariant uscita;    ///< Null in the cabinet, and where the movement has no date
};

/// What a movement makes of its key.
StatoChiave stato_dopo(const Movimento& movimento);
/// A key that the registry doesn't know is no failure.
Errore scrivi_stato(Connection& connessione, const QString& chiave, const StatoChiave& stato);

/// The number for the next row of the book; it stays that while nobody else can write.
Esito<qlonglong> nuovo_id_movimento(Connection& connessione);
Errore aggiungi_movimento(Connection& connessione, qlonglong id, const Movimento& movimento);

}  // namespace lokera
