#pragma once

#include <QString>

namespace lokera {

/// What kind of thing went wrong, for those who act on it.
enum class ClasseErrore {
  nessuno,   ///< a success
  bloccato,  ///< another console holds the lock; the same again may succeed later
  schema,    ///< a table or a column is missing: the file is older than the program
  pieno,     ///< no room on the disk
  perduto,   ///< the file can't be reached, or is damaged
  diritti,   ///< the right to write is missing
  altro,
};

/// What went wrong in the store. A value, never thrown: the caller tests it, shows it or skips it.
struct [[nodiscard]] Errore {
  int numero = 0;       ///< 0 for success, otherwise the engine's own number
  QString descrizione;  ///< empty for success

  ClasseErrore classe = numero == 0 ? ClasseErrore::nessuno : ClasseErrore::altro;

  explicit operator bool() const { return numero != 0; }
};

}  // namespace lokera
