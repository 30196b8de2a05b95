#pragma once

#include <QtGlobal>

namespace lokera::simulazione {

/// How badly a cabinet behaves at its command port, for networks that do nothing wrong by themselves. Chances
/// are in a thousand, drawn by the seed.
struct Comportamento {
  int lento_ms = 0;  ///< every reply takes this long
  int rifiuta = 0;   ///< a connection is closed as soon as it is made
  int cade = 0;      ///< a reply stops in its middle and the connection ends
  int ritarda = 0;   ///< a reply comes `ritardo_ms` late
  int ritardo_ms = 5000;
  int spezza = 0;  ///< a reply comes in two pieces, `pausa_ms` apart
  int pausa_ms = 30;
  int riavvio_ms = 1;  ///< how long a reset takes; connections made meanwhile are closed
  quint64 seme = 1;
};

}  // namespace lokera::simulazione
