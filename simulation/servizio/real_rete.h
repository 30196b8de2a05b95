#pragma once

#include <QHostAddress>

#include <map>
#include <vector>

#include "simulation/comune/rete.h"

class QTcpServer;
class QUdpSocket;

namespace lokera::simulazione {

class RealCanale;

/// The cabinets' network on real sockets. Needs a running application.
class RealRete : public Rete {
 public:
  /// `broadcast`: datagrams to 255.255.255.255 reach the cabinets too, from every network of the computer.
  /// Only for a network namespace of one's own.
  explicit RealRete(bool broadcast = false) : broadcast_(broadcast) {}
  ~RealRete() override;
  Q_DISABLE_COPY_MOVE(RealRete)

  bool ascolta_tcp(const QString& indirizzo, quint16 porta, Accetta accetta,
                   Proprietario di = nullptr) override;
  bool ascolta_udp(const QString& indirizzo, quint16 porta, Datagramma arrivo,
                   Proprietario di = nullptr) override;
  /// Answers leave from any port.
  bool ascolta_tutti(const QString& indirizzo, quint16 porta, Datagramma arrivo,
                     Proprietario di = nullptr) override;
  void smetti(const QString& indirizzo, Proprietario di = nullptr) override;

 private:
  struct Ascolto {
    QString indirizzo;
    Proprietario di;
    std::shared_ptr<QTcpServer> server;
  };
  struct Presa {
    QString indirizzo;
    Proprietario di;
    quint16 porta;
    std::shared_ptr<QUdpSocket> socket;
    Datagramma arrivo;
  };
  struct Accolto {
    std::weak_ptr<RealCanale> canale;
    Proprietario di;
  };
  void accogli(QTcpServer& server, const Accetta& accetta, Proprietario di);
  bool ascolta_broadcast(quint16 porta);
  void leggi(QUdpSocket& socket);
  void leggi_broadcast(quint16 porta);
  static void consegna(const Presa& presa, const QByteArray& dati, const QHostAddress& da, quint16 porta);

  bool broadcast_;
  std::vector<Ascolto> server_;
  std::vector<Presa> prese_;
  std::map<quint16, std::unique_ptr<QUdpSocket>> tutti_;  // by port, bound to the broadcast address
  std::vector<Accolto> canali_;
};

}  // namespace lokera::simulazione
