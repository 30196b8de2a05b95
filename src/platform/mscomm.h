#pragma once

#include <QByteArray>
#include <QStringList>

#include <functional>
#include <memory>
#include <vector>

namespace lokera {

/// A serial port that is only listened to: 9600 baud, 8 data bits, no parity, 1 stop bit.
class MSComm {
 public:
  virtual ~MSComm() = default;

  /// The port's number, from 1. Counts from the next opening.
  virtual void CommPort(int numero) = 0;

  /// Opens or closes. Whether the port is now as it was asked for: there may be no port of that number, or
  /// somebody else holds it, another object of this program included. One that is open already is opened
  /// anew. Closing drops what was not read.
  virtual bool PortOpen(bool aperta) = 0;
  /// False too after the device went away.
  virtual bool PortOpen() const = 0;
  /// The device that it is open on; empty while it is closed.
  virtual QString dispositivo() const = 0;

  /// How many bytes have come and were not read. More come only while the event loop runs.
  virtual qsizetype InBufferCount() const = 0;
  /// The oldest byte that was not read, a zero byte as good as any other; empty when there is none.
  virtual QByteArray Input() = 0;

  /// Something has come that is not read yet. Delivered from the event loop, never inside a delivery of the
  /// same port: a handler that waits for more looks at InBufferCount, and what it leaves is announced after
  /// it has returned. The port must not be destroyed inside.
  std::function<void()> OnComm;

  /// The device of the open port went away, and the port is closed. Delivered from the event loop, also while
  /// a handler of OnComm runs it. The port must not be destroyed inside.
  std::function<void()> Perduta;
};

/// A device that is there, and the number that means it.
struct PortaSeriale {
  int numero = 0;
  QString dispositivo;

  bool operator==(const PortaSeriale&) const = default;
};

class MSCommFactory {
 public:
  virtual ~MSCommFactory() = default;
  /// A new closed port.
  virtual std::unique_ptr<MSComm> crea_mscomm() = 0;

  /// The devices that the number may mean, there or not: a port opens the first of them that opens.
  virtual QStringList dispositivi(int numero) const = 0;
  /// Those that are there, by number; of several of one number the first is tried first.
  virtual std::vector<PortaSeriale> presenti() const = 0;
};

}  // namespace lokera
