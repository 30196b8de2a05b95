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

bool RealRete::ascolta_tcp(const QString& indirizzo, quint16 porta, Accetta accetta) {
  const auto server = crea_socket<QTcpServer>();
  if (!server->listen(QHostAddress(indirizzo), porta)) return false;
  QObject::connect(server.get(), &QTcpServer::newConnection, server.get(),
                   [this, suo = server.get(), accetta = std::move(accetta)] { accogli(*suo, accetta); });
  server_.emplace_back(indirizzo, server);
  return true;
}

void RealRete::accogli(QTcpServer& server, const Accetta& accetta) {
  const auto accoglie = accetta;  // a copy: it may stop listening inside
  std::vector<QTcpSocket*> nuovi;
  while (QTcpSocket* socket = server.nextPendingConnection()) nuovi.push_back(socket);
  for (QTcpSocket* socket : nuovi) {
    const auto canale = std::make_shared<RealCanale>(socket);
    std::erase_if(canali_, [](const auto& debole) { return debole.expired(); });
    canali_.push_back(canale);
    accoglie(canale);
    canale->ascolta();
  }
}

bool RealRete::ascolta_udp(const QString& indirizzo, quint16 porta, Datagramma arrivo) {
  const auto socket = crea_socket<QUdpSocket>();
  if (!socket->bind(QHostAddress(indirizzo), porta, QUdpSocket::DontShareAddress)) return false;
  QObject::connect(socket.get(), &QUdpSocket::readyRead, socket.get(),
                   [this, suo = socket.get()] { leggi(*suo); });
  prese_.push_back({indirizzo, porta, socket, std::move(arrivo)});
  if (broadcast_) ascolta_broadcast(porta);
  return true;
}

void RealRete::ascolta_broadcast(quint16 porta) {
  auto& socket = tutti_[porta];
  if (socket) return;
  socket = std::make_unique<QUdpSocket>();
  socket->bind(QHostAddress(QHostAddress::Broadcast), porta, QUdpSocket::ShareAddress);
  QObject::connect(socket.get(), &QUdpSocket::readyRead, socket.get(),
                   [this, porta] { leggi_broadcast(porta); });
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

void RealRete::smetti(const QString& indirizzo) {
  std::erase_if(server_, [&](const auto& voce) { return voce.first == indirizzo; });
  std::erase_if(prese_, [&](const Presa& presa) { return presa.indirizzo == indirizzo; });
  const auto canali = canali_;
  for (const auto& debole : canali) {
    const auto canale = debole.lock();
    if (canale && canale->indirizzo() == indirizzo) canale->chiudi();
  }
}

}  // namespace lokera::simulazione
