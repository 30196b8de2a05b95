#include "simulation/servizio/real_rete.h"

#include <QNetworkDatagram>
#include <QTcpServer>
#include <QUdpSocket>

#include "simulation/servizio/real_canale.h"

namespace lokera::simulazione {

namespace {

// Sockets may be let go of inside their own signals.
template <class T>
std::shared_ptr<T> crea_socket() {
  return {new T, [](T* socket) {
            socket->disconnect();
            socket->close();
            socket->deleteLater();
          }};
}

}  // namespace

RealRete::~RealRete() = default;

bool RealRete::ascolta_tcp(const QString& indirizzo, quint16 porta, Accetta accetta, Proprietario di) {
  const auto server = crea_socket<QTcpServer>();
  if (!server->listen(QHostAddress(indirizzo), porta)) return false;
  QObject::connect(
      server.get(), &QTcpServer::newConnection, server.get(),
      [this, suo = server.get(), accetta = std::move(accetta), di] { accogli(*suo, accetta, di); });
  server_.push_back({indirizzo, di, server});
  return true;
}

void RealRete::accogli(QTcpServer& server, const Accetta& accetta, Proprietario di) {
  const auto accoglie = accetta;  // a copy: it may stop listening inside
  std::vector<QTcpSocket*> nuovi;
  while (QTcpSocket* socket = server.nextPendingConnection()) nuovi.push_back(socket);
  for (QTcpSocket* socket : nuovi) {
    const auto canale = std::make_shared<RealCanale>(socket);
    std::erase_if(canali_, [](const Accolto& uno) { return uno.canale.expired(); });
    canali_.push_back({canale, di});
    accoglie(canale);
    canale->ascolta();
  }
}

bool RealRete::ascolta_udp(const QString& indirizzo, quint16 porta, Datagramma arrivo, Proprietario di) {
  const auto socket = crea_socket<QUdpSocket>();
  if (!socket->bind(QHostAddress(indirizzo), porta, QUdpSocket::DontShareAddress)) return false;
  QObject::connect(socket.get(), &QUdpSocket::readyRead, socket.get(),
                   [this, suo = socket.get()] { leggi(*suo); });
  prese_.push_back({indirizzo, di, porta, socket, std::move(arrivo)});
  if (broadcast_) ascolta_broadcast(porta);
  return true;
}

bool RealRete::ascolta_tutti(const QString& indirizzo, quint16 porta, Datagramma arrivo, Proprietario di) {
  if (!broadcast_ || !ascolta_broadcast(porta)) return false;
  prese_.push_back({indirizzo, di, porta, crea_socket<QUdpSocket>(), std::move(arrivo)});
  return true;
}

bool RealRete::ascolta_broadcast(quint16 porta) {
  auto& socket = tutti_[porta];
  if (socket) return true;
  auto nuovo = std::make_unique<QUdpSocket>();
  if (!nuovo->bind(QHostAddress(QHostAddress::Broadcast), porta, QUdpSocket::ShareAddress)) return false;
  socket = std::move(nuovo);
  QObject::connect(socket.get(), &QUdpSocket::readyRead, socket.get(),
                   [this, porta] { leggi_broadcast(porta); });
  return true;
}

void RealRete::leggi(QUdpSocket& socket) {
  while (socket.hasPendingDatagrams()) {
    const QNetworkDatagram datagramma = socket.receiveDatagram();
    const auto sua = std::find_if(prese_.begin(), prese_.end(),
                                  [&](const Presa& presa) { return presa.socket.get() == &socket; });
    if (sua == prese_.end()) return;  // stopped listening inside the last one
    const Presa presa = *sua;
    consegna(presa, datagramma.data(), datagramma.senderAddress(), quint16(datagramma.senderPort()));
  }
}

void RealRete::leggi_broadcast(quint16 porta) {
  QUdpSocket& socket = *tutti_.at(porta);
  while (socket.hasPendingDatagrams()) {
    const QNetworkDatagram datagramma = socket.receiveDatagram();
    const auto prese = prese_;  // a copy: a cabinet may stop listening inside
    for (const Presa& presa : prese) {
      if (presa.porta != porta) continue;
      consegna(presa, datagramma.data(), datagramma.senderAddress(), quint16(datagramma.senderPort()));
    }
  }
}

void RealRete::consegna(const Presa& presa, const QByteArray& dati, const QHostAddress& da, quint16 porta) {
  presa.arrivo(dati, [debole = std::weak_ptr(presa.socket), da, porta](QByteArrayView risposta) {
    if (const auto socket = debole.lock()) socket->writeDatagram(risposta.data(), risposta.size(), da, porta);
  });
}

void RealRete::smetti(const QString& indirizzo, Proprietario di) {
  const auto sua = [&](const auto& voce) { return voce.indirizzo == indirizzo && voce.di == di; };
  std::erase_if(server_, sua);
  std::erase_if(prese_, sua);
  const auto canali = canali_;
  for (const Accolto& uno : canali) {
    const auto canale = uno.canale.lock();
    if (canale && uno.di == di && canale->indirizzo() == indirizzo) canale->chiudi();
  }
}

}  // namespace lokera::simulazione
