#pragma once

#include <functional>

#include "link/conversazione.h"
#include "link/lokera_corrente.h"
#include "link/scambio.h"

namespace lokera {

/// The session for commands and stored transactions, cabinet port 10001. It dials the current cabinet, and
/// tells its progress in `lblLetturaTrans`. Who talks on it has a conversation, see `Conversazione`.
///
/// What is asked and brings no answer in time fails; so does what somebody else's conversation has ended.
class SessioneDownload {
 public:
  SessioneDownload(WinsockFactory& fabbrica, PolledWait& attesa, Scambio& scambio,
                   const LokeraCorrente& corrente, Label& lblLetturaTrans);

  int numero_connessione() const { return wskDownload_.numero(); }
  bool in_corso(int conversazione) const { return wskDownload_.in_corso(conversazione); }
  int prendi() { return wskDownload_.prendi(); }

  /// Starts the connection and returns without knowing whether it succeeded: test `connessa()`. Runs the loop
  /// for a second and more. Returns the number of the conversation that it began.
  int connessione_socket_download();
  bool connessa() const { return wskDownload_.connessa(); }
  bool attendi_connessa(int secondi) { return wskDownload_.attendi_connessa(secondi); }
  void chiudi() { wskDownload_.chiudi(); }
  void chiudi_e_attendi() { wskDownload_.chiudi_e_attendi(); }
  /// Leaves the cabinet alone for more than `secondi`; the conversation may have ended meanwhile.
  void pausa(int secondi) { wskDownload_.pausa(secondi); }

  /// 0 when the cabinet answered the link test, 1 when not. The frame always goes out twice.
  qint16 verifica_collegamento();

  /// The serial number, ten digits.
  Esito<QByteArray> leggi_seriale();

  /// Sends, and returns the cabinet's reply, whatever its code. `dati`: how many characters of reply data the
  /// caller looks at.
  Esito<QByteArray> scambia(QByteArrayView frame, int secondi, qsizetype dati = 0);
  /// The same, once more when the first try brought no answer or another code than "00".
  Esito<QByteArray> scambia_due_volte(QByteArrayView frame, int secondi);

  /// Asks how many transactions are stored; the answer comes by `leggi_transazioni`.
  void chiedi_conta();
  /// Asks for the oldest stored transaction. From here on a connection takes in a record only while one is
  /// asked for and not yet answered.
  void chiedi_transazione();
  /// Waits for more than `secondi` until the cabinet has confirmed that it dropped the record; whether it
  /// has.
  bool attendi_conferma(int secondi);
  /// Acknowledges the record that was taken in, so that the cabinet drops it.
  void conferma_transazione();

  /// Whether a window has the session (`SessioneTenuta`): nobody visits, no stored record is taken in.
  bool tenuta() const { return tenute_ > 0; }
  /// Whether a window that has it stops the ticks too.
  bool tick_fermi() const { return tick_fermi_ > 0; }
  /// The first of them stops the ticks, or the last no longer does. Must not run the loop.
  std::function<void()> tick_cambiati;

  /// Forgets what the live session brought last.
  void svuota_ricezione() { scambio_.buffer_ricezione.clear(); }

  /// A good "00039" with this number of stored transactions. May run the loop.
  std::function<void(qint16 numero)> leggi_transazioni;
  /// A whole "00036" frame of more than 30 characters, to be booked.
  std::function<void(const QByteArray& frame)> acquisisci_transazione;

 private:
  friend class SessioneTenuta;
  void trattieni(int quante, bool tick);

  /// How far the reading of a record has come on this connection.
  enum class Lettura { mai, chiesta, presa, confermata };

  void wskDownload_DataArrival(const QByteArray& frame, bool suo);
  bool prima_decisione(const QByteArray& frame, bool suo);
  bool conta_accettata(const QByteArray& frame) const;
  bool record_atteso(const QByteArray& frame);
  void seconda_decisione(const QByteArray& frame);

  Conversazione wskDownload_;
  Scambio& scambio_;
  const LokeraCorrente& corrente_;
  Label& lblLetturaTrans_;
  Lettura lettura_ = Lettura::mai;
  int tenute_ = 0;
  int tick_fermi_ = 0;  ///< of them, those that stop the ticks
};

/// Whether the reply came and has the code "00".
bool accettata(const Esito<QByteArray>& risposta);

}  // namespace lokera
