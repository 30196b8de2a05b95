#pragma once

#include "forms/finestra.h"
#include "forms/traduttore.h"
#include "link/conversazione.h"
#include "platform/dialogs.h"

namespace lokera {

/// The parameter window's own line to a cabinet, and to all of them at once. A reply that is no success is
/// shown in a box as it comes, before the wait for it goes on.
///
/// What waits runs the loop; the window must outlive it.
class LineaLokera {
 public:
  LineaLokera(Finestra& finestra, WinsockFactory& fabbrica, PolledWait& attesa, Traduttore& traduttore,
              MessageBox& messaggi);

  /// Dials; `indirizzo` in the stored form of 15 characters, `porta` as it stands in its field. Whether the
  /// connection stood within three seconds; no box tells.
  bool connetti(const QString& indirizzo, const QString& porta);
  bool connessa() const { return wsk.connessa(); }

  /// Sends `testo` as a frame to the cabinet, and returns the first reply of its command that fits.
  Esito<QByteArray> chiedi(QByteArrayView testo, int secondi, qsizetype minimo = testa_risposta,
                           std::function<bool(const QByteArray&)> adatto = {});

  /// Takes the socket for datagrams: those of before are not heard any more.
  void chiudi_datagrammi() { wsk_udp.chiudi(); }
  /// What goes out now goes to every cabinet of the network.
  void rivolgi_a_tutti();
  /// Resets every cabinet of the network; none answers.
  void azzera_tutte();

  Conversazione wsk;
  Conversazione wsk_udp;

 private:
  void wsk_DataArrival(const QByteArray& frame, bool suo);

  Finestra& finestra_;
  Traduttore& traduttore_;
  MessageBox& messaggi_;
  bool in_messaggio_ = false;
};

}  // namespace lokera
