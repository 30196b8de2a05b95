#pragma once

#include <QByteArray>

namespace lokera::simulazione {

class Cabinet;

// What a cabinet does with the files of a memory card in its slot. A file is taken as a whole or not at all:
// one with a line of another form changes nothing, and false is returned.

/// KEYS.TXT in place of the archive of keys. A key's place is its line: the first line is the archive's
/// position 0, which people call 1.
bool carica_chiavi(Cabinet& cabinet, const QByteArray& file);
/// USERS.TXT in place of the archive of operators. The first bit of a mask is that of the first place, so the
/// digits are the archive's own.
bool carica_operatori(Cabinet& cabinet, const QByteArray& file);
/// DATA.TXT with all stored movements, the oldest first; the cabinet drops them. Empty when there are none.
QByteArray scarica_movimenti(Cabinet& cabinet);

}  // namespace lokera::simulazione
