#pragma once

#include <QString>

namespace lokera {

/// The code of a tag, ten hexadecimal digits, cut out of what the desk reader sent of it: two upper-case
/// digits for each byte. Empty when it is no tag, or none with a code that a card can have.
QString codice_da_lettura(const QString& testo);

}  // namespace lokera
