#pragma once

#include <functional>
#include <memory>

#include "forms/controlli.h"
#include "link/scambio.h"
#include "platform/polled_wait.h"
#include "platform/winsock.h"

namespace lokera {

/// The session for commands and stored transactions, cabinet port 10001. It dials the cabinet that
/// `lblIndirizzoIP` names, and tells its progress in `lblLetturaTrans`.
class SessioneDownload {
 public:
  SessioneDownload(WinsockFactory& fabbrica, PolledWait& attesa, Scambio& scambio,
                   const Label& lblIndirizzoIP, Label& lblLetturaTrans);

  /// Starts the connection and returns without knowing whether it succeeded: test `connessa()`. Runs the loop
  /// for a second and more.
  void connessione_socket_download();

  /// 0 when the cabinet answered the link test, 1 when not. The frame always goes out twice.
  qint16 verifica_collegamento();

  /// Closes the socket and waits, at most some three seconds, until it is closed.
  void chiudi_e_attendi();

  /// Clears `stato_risposta`, sends, and waits until it is filled or more than `secondi` have passed. Returns
  /// `stato_risposta`.
  qint16 scambia(QByteArrayView frame, int secondi);
  /// The same, once more when the first try brought no answer or another code than "00".
  qint16 scambia_due_volte(QByteArrayView frame, int secondi);

  /// Differs after each new connection: who waits for a reply of the old one may stop.
  int numero_connessione() const { return numero_connessione_; }
  bool connessa() const { return wskDownload->State() == socket_connesso; }
  Scambio& scambio() { return scambio_; }
  PolledWait& attesa() { return attesa_; }

  void wskDownload_DataArrival(qsizetype bytesTotal);

  std::unique_ptr<Winsock> wskDownload;

  /// A good "00039" with this number of stored transactions. May run the loop.
  std::function<void(qint16 numero)> leggi_transazioni;
  /// An "00036" frame of more than 30 characters stands in `buffer_download`.
  std::function<void()> acquisisci_transazione;

 private:
  bool prima_decisione(const QByteArray& frame);
  void seconda_decisione(const QByteArray& frame);

  PolledWait& attesa_;
  Scambio& scambio_;
  const Label& lblIndirizzoIP_;
  Label& lblLetturaTrans_;
  int numero_connessione_ = 0;
};

}  // namespace lokera
