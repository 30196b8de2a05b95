#pragma once

#include <QByteArray>
#include <QString>

#include <functional>
#include <memory>

namespace lokera {

enum class Protocol { tcp, udp };

/// States that the system tests; a socket may report others in between.
constexpr int socket_chiuso = 0;
constexpr int socket_connesso = 7;

/// One socket, the dialling side. No call blocks and none reports a failure: the caller reads `State`.
class Winsock {
 public:
  virtual ~Winsock() = default;

  virtual void Protocol(enum Protocol protocollo) = 0;
  virtual void RemoteHost(const QString& indirizzo) = 0;
  virtual void RemotePort(quint16 porta) = 0;

  /// Starts a connection to the address and port and returns at once; what is no address is never dialled.
  /// UDP sockets need no Connect.
  virtual void Connect(const QString& indirizzo, quint16 porta) = 0;

  /// Hands the bytes over. On a TCP socket that is not connected they are dropped; on a UDP socket they go
  /// out as one datagram to RemoteHost and RemotePort.
  virtual void SendData(QByteArrayView dati) = 0;

  /// The oldest frame that has arrived and has not been fetched yet; empty when there is none. On a TCP
  /// socket a frame ends with its carriage return; a rest without one is handed out as it stands when nothing
  /// has followed for 200 ms, so whoever books or grants looks for the carriage return first. On a UDP socket
  /// a datagram is a frame.
  virtual QByteArray GetData() = 0;

  /// Drops the connection and whatever was not fetched. `State` reads 0 at once or soon after.
  virtual void Close() = 0;

  /// Read from the socket itself, never kept.
  virtual int State() const = 0;

  /// Name of this computer.
  virtual QString LocalHostName() const = 0;

  /// A frame of that many bytes is there to fetch; one event for each frame. Delivered from the event loop,
  /// never from inside SendData or GetData, and also while an earlier delivery is still on the stack (a
  /// handler that waits for more of the same socket gets it). The socket must not be destroyed inside.
  std::function<void(qsizetype bytesTotal)> DataArrival;
};

class WinsockFactory {
 public:
  virtual ~WinsockFactory() = default;
  /// A new closed socket.
  virtual std::unique_ptr<Winsock> crea_winsock() = 0;
};

}  // namespace lokera
