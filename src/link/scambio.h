#pragma once

#include <QByteArray>

namespace lokera {

/// The slots of an exchange: the frame that arrives fills them, and while an exchange waits only a frame of
/// its own command does. One set for the whole console. They tell what came last; who asked has the reply
/// from the call that asked for it.
struct Scambio {
  QByteArray buffer_download;        ///< the last frame of the session for commands
  QByteArray buffer_ricezione;       ///< the last one of the live session, empty once it is answered
  QByteArray risposta_collegamento;  ///< data of the last good "00010" reply; empty means no answer
  qint16 stato_risposta = 0;         ///< 0 nothing yet, 1 reply "00", 2 reply with another code
  QByteArray risposta_dati;          ///< data of the last good "00030" or "00035" reply
  char conferma_transazione = 'N';   ///< 'S' when the cabinet has confirmed "00037"
};

}  // namespace lokera
