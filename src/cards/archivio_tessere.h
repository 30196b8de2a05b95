#pragma once

#include <QDate>
#include <QStringList>

#include <optional>
#include <vector>

#include "ledger/coda_tessere.h"
#include "store/recordset.h"

namespace lokera {

/// What the card window writes of a card.
struct RigaTessera {
  QString codice;
  QString intestazione;
  QDate valido_dal, valido_al;  ///< the first not after the second
  qlonglong posizione = 0;
  qlonglong gruppo = 0;   ///< of operators
  qlonglong massimo = 0;  ///< keys that it may hold out; 0 for no limit
};

/// The rows of `tessere_operatori`, with their groups of keys and what a change of them queues.
class ArchivioTessere {
 public:
  explicit ArchivioTessere(Connection& archivio) : archivio_(archivio), coda_(archivio) {}

  /// The holder of a card that has the code and is not on its way out.
  Esito<std::optional<QString>> titolare(const QString& codice);
  /// The groups of keys that the card may use.
  Esito<QList<qlonglong>> gruppi(const QString& tessera);
  /// What the card has in its hand now, by name.
  Esito<QStringList> chiavi_in_mano(const QString& tessera);

  /// Writes row and groups and queues the card for the cabinets that it reaches, and its deletion where it
  /// was and is no more; all of it or nothing. `identita` is the code that it had; empty for a new card. One
  /// whose code changes keeps its groups' rows under the new code, and the old code leaves its cabinets.
  Errore registra(const QString& identita, const RigaTessera& riga, const QList<qlonglong>& gruppi);
  Errore elimina(const QString& tessera) { return coda_.elimina_tessera(tessera); }

 private:
  Errore scrivi(const RigaTessera& riga, const QList<qlonglong>& gruppi);

  Connection& archivio_;
  CodaTessere coda_;
};

}  // namespace lokera
