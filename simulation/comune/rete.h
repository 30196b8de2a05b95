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

/// The cabinets' side of a network: real sockets or the virtual network, the same to a cabinet.
class Rete {
 public:
  virtual ~Rete() = default;
  using Accetta = std::function<void(std::shared_ptr<Canale>)>;
  using Datagramma =
      std::function<void(QByteArrayView dati, const std::function<void(QByteArrayView)>& rispondi)>;

  /// Starts listening; false when the address is taken. Ends with the Rete or with smetti().
  virtual bool ascolta_tcp(const QString& indirizzo, quint16 porta, Accetta accetta) = 0;
  virtual bool ascolta_udp(const QString& indirizzo, quint16 porta, Datagramma arrivo) = 0;
  /// Stops listening and drops the connections of this address.
  virtual void smetti(const QString& indirizzo) = 0;
};

}  // namespace lokera::simulazione
