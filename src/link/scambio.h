#pragma once

#include <QByteArray>

#include <utility>

namespace lokera {

/// The slots of an exchange: the frame that arrives fills them. One set for the whole console; what keeps its
/// users apart is that the cycle stands still while a second window is open, and, while an exchange waits,
/// that only a frame of its own command fills its slot.
struct Scambio {
  QByteArray buffer_download;        ///< what the last DataArrival of `wskDownload` fetched
  QByteArray buffer_ricezione;       ///< the same for `wsk` of the main window
  QByteArray risposta_collegamento;  ///< data of the last good "00010" reply; empty means no answer
  qint16 stato_risposta = 0;         ///< 0 nothing yet, 1 reply "00", 2 reply with another code
  QByteArray risposta_dati;          ///< data of the last good "00030" or "00035" reply
  char conferma_transazione = 'N';   ///< 'S' when the cabinet has confirmed "00037"

  /// The reply that an exchange waits for. A frame that was cut off is taken for it only when it is at least
  /// `minimo` characters long, which hold all that its reader looks at.
  struct Attesa {
    QByteArray comando;  ///< five characters; empty while no exchange waits
    qsizetype minimo = 0;
    int conversazione = 0;  ///< whose it is
  };
  Attesa attesa;
};

/// While it lives, an exchange waits; the one that it interrupted, if any, waits again after it.
class InAttesa {
 public:
  InAttesa(Scambio& scambio, Scambio::Attesa attesa)
      : scambio_(scambio), precedente_(std::exchange(scambio.attesa, std::move(attesa))) {}
  ~InAttesa() { scambio_.attesa = std::move(precedente_); }
  Q_DISABLE_COPY_MOVE(InAttesa)

 private:
  Scambio& scambio_;
  Scambio::Attesa precedente_;
};

}  // namespace lokera
