#pragma once

#include <QByteArray>

#include <functional>
#include <memory>

#include "platform/polled_wait.h"
#include "platform/winsock.h"
#include "store/errore.h"

namespace lokera {

/// Why an exchange brought nothing, as the number of its `Errore`.
constexpr int senza_risposta = 1;        ///< nothing that fits came in time
constexpr int conversazione_finita = 2;  ///< somebody else has the socket now
constexpr int risposta_negativa = 3;     ///< the cabinet refused; `descrizione` is its reply code's message

Errore errore_conversazione_finita();

/// Code and reply code: what is shorter is no frame.
constexpr qsizetype testa_risposta = 7;

/// The frame that a wait is for.
struct Atteso {
  QByteArray comando;  ///< five characters
  /// A frame that was cut off, or a datagram without its carriage return, serves when it is as long: all
  /// that its reader looks at is there.
  qsizetype minimo = testa_risposta;
  /// Whether a frame of the command is the one that ends the wait; empty: the first is.
  std::function<bool(const QByteArray& frame)> adatto;
};

/// A socket, TCP or UDP, and the waits for what comes in on it.
///
/// Who talks on it has a conversation, known by its number. It ends when somebody else connects, closes,
/// takes the socket or begins an exchange inside a wait of it; from then on its waits end without an answer,
/// and its owner sends and changes nothing more.
///
/// The calls with a limit run the loop, for more than that many whole seconds (see `PolledWait::attendi`);
/// the object must outlive them.
class Conversazione {
 public:
  Conversazione(WinsockFactory& fabbrica, PolledWait& attesa);
  Q_DISABLE_COPY_MOVE(Conversazione)

  /// The number of the conversation that is under way.
  int numero() const { return numero_; }
  bool in_corso(int numero) const { return numero == numero_; }
  /// Ends the conversation that is under way and begins another on the same connection; returns its number.
  int prendi() { return ++numero_; }

  /// Takes the socket and closes it.
  void chiudi();
  /// Closes the socket and waits, at most some three seconds, until it is closed. Takes nothing.
  void chiudi_e_attendi();
  /// Begins a TCP connection and returns at once. Takes nothing; addresses are in the socket's form.
  void chiama(const QString& indirizzo, quint16 porta);
  /// Waits until the connection stands, or the conversation has ended; whether it is connected and still the
  /// caller's.
  bool attendi_connessa(int secondi);
  /// Takes the socket, dials and waits until the connection stands; whether it does.
  bool connetti(const QString& indirizzo, quint16 porta, int secondi);
  /// From now on frames go out as datagrams to there; what comes back comes until the socket is closed.
  void rivolgi(const QString& indirizzo, quint16 porta);
  bool connessa() const { return socket_->State() == socket_connesso; }

  /// Sends and awaits nothing.
  void invia(QByteArrayView frame) { socket_->SendData(frame); }
  /// Sends, and returns the first reply of the same command that fits. An exchange that begins inside the
  /// wait of another takes the socket from it.
  Esito<QByteArray> chiedi(QByteArrayView frame, int secondi, qsizetype minimo = testa_risposta,
                           std::function<bool(const QByteArray&)> adatto = {});
  /// The wait of `chiedi` alone.
  Esito<QByteArray> attendi(const Atteso& atteso, int secondi);
  /// Sends, and hands over every reply of the same command until the time is over; `ognuna` is called inside
  /// the socket's event. False when the conversation ended before.
  bool raccogli(QByteArrayView frame, int secondi, qsizetype minimo,
                const std::function<void(const QByteArray&)>& ognuna);
  /// Whether an exchange waits, also one whose conversation has ended and that could not return yet.
  bool in_attesa() const { return attesa_; }
  /// Lets the time pass, whoever has the socket.
  void pausa(int secondi) { cronometro_.attendi_oltre(secondi); }

  QString nome_computer() const { return socket_->LocalHostName(); }

  /// Each frame, inside the socket's event and before a wait has it; noise is left out. `suo`: no exchange
  /// waits, or it is a reply to the one that does. May run the loop.
  std::function<void(const QByteArray& frame, bool suo)> arrivato;

 private:
  /// A wait that is on the stack.
  struct Attesa {
    const Atteso& atteso;
    int numero;
    Attesa* esterna;  ///< the one that it interrupted, which waits again after it
    bool venuto = false;
    QByteArray frame;
  };

  static bool risponde(const Atteso& atteso, const QByteArray& frame);
  void arrivo();

  std::unique_ptr<Winsock> socket_;
  PolledWait& cronometro_;
  int numero_ = 0;
  Attesa* attesa_ = nullptr;
};

}  // namespace lokera
