#pragma once

#include <span>

#include "store/recordset.h"

namespace lokera {

/// A column of a cabinet's row and what goes into it.
struct ValoreLokera {
  QStringView colonna;
  QVariant valore;
};

constexpr qlonglong id_massimo_lokera = 32767;

/// The rows of `parametri`, one for each cabinet.
class ArchivioLokere {
 public:
  explicit ArchivioLokere(Connection& archivio) : archivio_(archivio) {}

  /// Opens the row of that number; `eof()` when there is none.
  Errore apri(Recordset& rs, qlonglong id);
  Esito<bool> esiste(qlonglong id);

  /// Writes the row of number `id`, or a new one when there is none (0 for a cabinet that has none yet);
  /// `nuovo` is the number that it has from now on. A cabinet that changes its number takes along what the
  /// database holds for it: keys, queue, positions, deletions. All of it or nothing.
  Errore registra(qlonglong id, qlonglong nuovo, std::span<const ValoreLokera> valori);

  Errore imposta_indirizzo(qlonglong id, const QString& ip_lokera);

  /// The row and its keys. What the cabinet itself may still hold (positions, waiting deletions) stays known,
  /// for the day when it is registered again.
  Errore elimina(qlonglong id);

 private:
  Errore scrivi(qlonglong id, qlonglong nuovo, std::span<const ValoreLokera> valori);
  Errore rinumera(qlonglong id, qlonglong nuovo);

  Connection& archivio_;
};

}  // namespace lokera
