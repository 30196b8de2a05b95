#pragma once

#include <QList>
#include <QString>

#include <optional>

#include "store/connection.h"

namespace lokera {

/// Where each card's record stands in the archive of each cabinet, counted from 0, and which freed positions
/// may still hold a record, because the cabinet has not confirmed its deletion.
class PosizioniTessere {
 public:
  explicit PosizioniTessere(Connection& connessione) : c_(connessione) {}

  /// The card's position, which it keeps for good; a card without one gets the lowest free one.
  Esito<qint32> assegna(const QString& tessera, qlonglong lokera);

  /// Frees the card's position and remembers it as not confirmed, in one. Returns the position that it had,
  /// if any.
  Esito<std::optional<qint32>> libera(const QString& tessera, qlonglong lokera);

  /// What the position held before is gone for certain: deleted, or overwritten.
  Errore confermata(qlonglong lokera, qint32 posizione);

  /// Positions whose deletion is to be asked for again, in rising order. One where another card may have its
  /// record by now is left out; a card whose writing still waits in the queue has none yet.
  Esito<QList<qint32>> da_confermare(qlonglong lokera);

 private:
  Esito<qint32> prima_libera(qlonglong lokera);
  Errore ricorda(const QString& tessera, qlonglong lokera, qint32 posizione);

  Connection& c_;
};

}  // namespace lokera
