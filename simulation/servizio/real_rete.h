#pragma once

#include <QHostAddress>

#include <map>
#include <vector>

#include "simulation/comune/rete.h"

class QTcpServer;
class QUdpSocket;

namespace lokera::simulazione {

class RealCanale;

/// The cabinets' network on real sockets, one address for each cabinet. Needs a running application.
class RealRete : public Rete {
 public:
  /// `broadcast`: datagrams to 255.255.255.255 reach the cabinets too, from every network of the computer.
  /// Only for a network namespace of one's own.
  explicit RealRete(bool broadcast = false) : broadcast_(broadcast) {}
  ~RealRete() override;
  Q_DISABLE_COPY_MOVE(RealRete)

  bool ascolta_tcp(const QString& indirizzo, quint16 porta, Accetta accetta) override;
  bool ascolta_udp(const QString& indirizzo, quint16 porta, Datagramma arrivo) override;
  void smetti(const QString& indirizzo) override;

 private:
  struct Presa {
    QString indirizzo;
    quint16 porta;
    std::shared_ptr<QUdpSocket> socket;
    Datagramma arrivo;
  };
  void accogli(QTcpServer& server, const Accetta& accetta);
  void ascolta_broadcast(quint16 porta);
  void leggi(QUdpSocket& socket);
  void leggi_broadcast(quint16 porta);
  static void consegna(const Presa& presa, const QByteArray& dati, const QHostAddress& da, quint16 porta);

  bool broadcast_;
  std::vector<std::pair<QString, std::shared_ptr<QTcpServer>>> server_;
  std::vector<Presa> prese_;
  std::map<quint16, std::unique_ptr<QUdpSocket>> tutti_;  // by port, bound to the broadcast address
  std::vector<std::weak_ptr<RealCanale>> canali_;
};

}  // namespace lokera::simulazione
