#pragma once

#include <QString>

namespace lokera {

/// What went wrong in the store. A value, never thrown: the caller tests it, shows it or skips it.
struct [[nodiscard]] Errore {
  int numero = 0;       ///< 0 for success, otherwise the engine's own number
  QString descrizione;  ///< empty for success

  explicit operator bool() const { return numero != 0; }
};

}  // namespace lokera
