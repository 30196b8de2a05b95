#pragma once

#include <QByteArray>
#include <QString>

#include <functional>
#include <memory>

namespace lokera::simulazione {

/// One accepted connection, seen from the cabinet.
class Canale {
 public:
  virtual ~Canale() = default;
  virtual void invia(QByteArrayView dati) = 0;  ///< dropped when the connection is gone
  virtual void chiudi() = 0;
  virtual bool aperto() const = 0;
  std::function<void(QByteArrayView)> Arrivo;  ///< what came, in the pieces in which it came
  std::function<void()> Caduta;                ///< the other side is gone; not called after chiudi()
};

/// Who listens. Cabinets can share an address, and each ends only what is its own; who is alone needs no
/// name.
using Proprietario = const void*;

/// The cabinets' side of a network: real sockets or the virtual network, the same to a cabinet.
class Rete {
 public:
  virtual ~Rete() = default;
  using Accetta = std::function<void(std::shared_ptr<Canale>)>;
  using Datagramma =
      std::function<void(QByteArrayView dati, const std::function<void(QByteArrayView)>& rispondi)>;

  /// Starts listening; false when the address is taken. Ends with the Rete or with smetti().
  virtual bool ascolta_tcp(const QString& indirizzo, quint16 porta, Accetta accetta,
                           Proprietario di = nullptr) = 0;
  /// Datagrams to the address and, where the network carries them, to all.
  virtual bool ascolta_udp(const QString& indirizzo, quint16 porta, Datagramma arrivo,
                           Proprietario di = nullptr) = 0;
  /// Only datagrams to all, whoever has the address; false where the network carries none.
  virtual bool ascolta_tutti(const QString& indirizzo, quint16 porta, Datagramma arrivo,
                             Proprietario di = nullptr) = 0;
  /// Stops listening and drops the connections that `di` has at this address.
  virtual void smetti(const QString& indirizzo, Proprietario di = nullptr) = 0;
};

}  // namespace lokera::simulazione
