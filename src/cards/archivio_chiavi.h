#pragma once

#include <QString>

#include <optional>

#include "ledger/coda_tessere.h"
#include "store/recordset.h"

namespace lokera {

/// What the key window writes of a key.
struct RigaChiave {
  QString codice;
  qlonglong lokera = 0;
  qlonglong posizione = 0;  ///< counted from 0
  QString descrizione;
  qlonglong gruppo = 0;
};

/// The rows of `tessere_chiavi`, and the cards that a change of a key concerns.
class ArchivioChiavi {
 public:
  explicit ArchivioChiavi(Connection& archivio) : archivio_(archivio), coda_(archivio) {}

  /// The lowest position of the cabinet that no key has.
  Esito<qlonglong> posizione_libera(qlonglong lokera);
  /// The key that has the position in this cabinet, but for `chiave` itself.
  Esito<std::optional<QString>> occupata_da(qlonglong lokera, qlonglong posizione, const QString& chiave);
  Esito<std::optional<RigaChiave>> trova(const QString& codice);
  /// A key of another cabinet and another group at the same position: a card's mask can't tell the two apart.
  Esito<std::optional<RigaChiave>> stessa_posizione(const RigaChiave& chiave);

  /// Before the cabinet is told: the cards of the key's group wait for it, those of a group that it leaves
  /// lose it; and, when `anche_riga`, the row of `chiave` becomes this, or a new row does, and where another
  /// position or group changes masks, the cards' records at other cabinets are to be written anew. All of it
  /// or nothing. Who has the key out, and since when, stays.
  Errore prima_della_lokera(const QString& chiave, const RigaChiave& nuova, bool anche_riga);
  /// The cabinet has the key: the records of those cards are to be written.
  Errore registrata_in_lokera(const RigaChiave& chiave);
  /// The cabinet has the key no more: its row goes, and the cards of its group are written anew without it.
  Errore elimina(const RigaChiave& chiave);

 private:
  Errore scrivi(const QString& chiave, const RigaChiave& nuova);
  Errore accoda_altrove(const std::optional<RigaChiave>& prima, const RigaChiave& dopo);

  Connection& archivio_;
  CodaTessere coda_;
};

}  // namespace lokera
