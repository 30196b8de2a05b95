#pragma once

#include <functional>
#include <memory>

#include "link/lokera_corrente.h"
#include "link/scambio.h"
#include "platform/polled_wait.h"
#include "platform/winsock.h"

namespace lokera {

/// The session for commands and stored transactions, cabinet port 10001. It dials the current
/// cabinet, and tells its progress in `lblLetturaTrans`.
///
/// Who talks on it has a conversation, known by its number. It ends when somebody else connects, closes,
/// takes the session or begins an exchange inside a wait of it; from then on its waits end without an answer,
/// and its owner sends and changes nothing more.
class SessioneDownload {
 public:
  SessioneDownload(WinsockFactory& fabbrica, PolledWait& attesa, Scambio& scambio,
                   const LokeraCorrente& corrente, Label& lblLetturaTrans);

  /// The number of the conversation that is under way.
  int numero_connessione() const { return numero_connessione_; }
  bool in_corso(int conversazione) const { return conversazione == numero_connessione_; }
  /// Ends the conversation that is under way and begins another on the same connection; returns its number.
  int prendi() { return ++numero_connessione_; }

  /// Starts the connection and returns without knowing whether it succeeded: test `connessa()`. Runs the loop
  /// for a second and more. Returns the number of the conversation that it began.
  int connessione_socket_download();
  /// Closes the socket and takes the session.
  void chiudi();
  /// Closes the socket and waits, at most some three seconds, until it is closed.
  void chiudi_e_attendi();

  /// 0 when the cabinet answered the link test, 1 when not. The frame always goes out twice.
  qint16 verifica_collegamento();

  /// Asks for the serial number, ten digits; empty when the cabinet doesn't give it in time.
  QByteArray leggi_seriale();

  /// Clears `stato_risposta`, sends, and waits until a reply of the same command fills it or more than
  /// `secondi` have passed. Returns `stato_risposta`, 0 also when the conversation ended meanwhile. `dati`:
  /// how many characters of reply data the caller looks at.
  qint16 scambia(QByteArrayView frame, int secondi, qsizetype dati = 0);
  /// The same, once more when the first try brought no answer or another code than "00".
  qint16 scambia_due_volte(QByteArrayView frame, int secondi);

  /// Asks for the oldest stored transaction. From here on a connection takes in a record only while one is
  /// asked for and not yet answered.
  void chiedi_transazione();
  /// Waits for more than `secondi` until the cabinet has confirmed that it dropped the record; whether it
  /// has.
  bool attendi_conferma(int secondi);
  /// Acknowledges the record that was taken in, so that the cabinet drops it.
  void conferma_transazione();

  bool connessa() const { return wskDownload->State() == socket_connesso; }
  Scambio& scambio() { return scambio_; }
  PolledWait& attesa() { return attesa_; }

  void wskDownload_DataArrival(qsizetype bytesTotal);

  std::unique_ptr<Winsock> wskDownload;

  /// A good "00039" with this number of stored transactions. May run the loop.
  std::function<void(qint16 numero)> leggi_transazioni;
  /// A whole "00036" frame of more than 30 characters, to be booked.
  std::function<void(const QByteArray& frame)> acquisisci_transazione;

 private:
  /// How far the reading of a record has come on this connection.
  enum class Lettura { mai, chiesta, presa, confermata };

  bool chiedi(QByteArrayView frame, int secondi, qsizetype minimo, const std::function<bool()>& pronta);
  bool attendi(int secondi, QByteArrayView comando, qsizetype minimo, const std::function<bool()>& pronta);
  bool riempie(const QByteArray& frame) const;
  bool prima_decisione(const QByteArray& frame, bool riempie);
  bool conta_accettata(const QByteArray& frame) const;
  bool record_atteso(const QByteArray& frame);
  void seconda_decisione(const QByteArray& frame);

  PolledWait& attesa_;
  Scambio& scambio_;
  const LokeraCorrente& corrente_;
  Label& lblLetturaTrans_;
  int numero_connessione_ = 0;
  Lettura lettura_ = Lettura::mai;
};

}  // namespace lokera
