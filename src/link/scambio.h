#pragma once

#include <QByteArray>

namespace lokera {

/// The slots of an exchange: the frame that arrives fills them, whoever is waiting. One set for the whole
/// console; what keeps its users apart is that the cycle stands still while a second window is open.
struct Scambio {
  QByteArray buffer_download;        ///< what the last DataArrival of `wskDownload` fetched
  QByteArray buffer_ricezione;       ///< the same for `wsk` of the main window
  QByteArray risposta_collegamento;  ///< data of the last good "00010" reply; empty means no answer
  qint16 stato_risposta = 0;         ///< 0 nothing yet, 1 reply "00", 2 reply with another code
  QByteArray risposta_dati;          ///< data of the last good "00030" or "00035" reply
  char conferma_transazione = 'N';   ///< 'S' when the cabinet has confirmed "00037"
};

}  // namespace lokera
