#pragma once

#include <QList>
#include <QString>

#include "store/connection.h"

namespace lokera {

/// Where each card's record stands in the archive of each cabinet, counted from 0, and which freed positions
/// may still hold a record, because the cabinet has not confirmed its deletion.
class PosizioniTessere {
 public:
  explicit PosizioniTessere(Connection& connessione) : c_(connessione) {}

  /// The card's position, which it keeps for good; a card without one gets the lowest free one.
  Errore assegna(const QString& tessera, qlonglong lokera, qint32& posizione);

  /// Frees the card's position and remembers it as not confirmed, in one. Without a position `trovata` is
  /// false and `posizione` stays as it is.
  Errore libera(const QString& tessera, qlonglong lokera, qint32& posizione, bool& trovata);

  /// What the position held before is gone for certain: deleted, or overwritten.
  Errore confermata(qlonglong lokera, qint32 posizione);

  /// Positions whose deletion is to be asked for again, in rising order. One where another card may have its
  /// record by now is left out; a card whose writing still waits in the queue has none yet.
  Errore da_confermare(qlonglong lokera, QList<qint32>& posizioni);

 private:
  Errore prima_libera(qlonglong lokera, qint32& posizione);
  Errore ricorda(const QString& tessera, qlonglong lokera, qint32 posizione);

  Connection& c_;
};

}  // namespace lokera
