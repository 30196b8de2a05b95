#pragma once

#include <QString>

namespace lokera {

/// Whether a text can be the code of a key or of a card: ten printable characters, no dot, no blank at its
/// ends. Any other could not travel to a cabinet, or come back in a movement.
bool codice_registrabile(const QString& testo);

}  // namespace lokera
