#include "simulation/servizio/real_canale.h"

#include <QHostAddress>

namespace lokera::simulazione {

RealCanale::RealCanale(QTcpSocket* socket) : socket_(socket), indirizzo_(socket->localAddress().toString()) {
  socket_->setParent(nullptr);
  socket_->setSocketOption(QAbstractSocket::LowDelayOption, 1);
}

RealCanale::~RealCanale() {
  chiudi();
  socket_->deleteLater();
}

void RealCanale::ascolta() {
  if (chiuso_) return;
  QObject::connect(socket_, &QTcpSocket::readyRead, socket_, [this] { leggi(); });
  QObject::connect(socket_, &QTcpSocket::disconnected, socket_, [this] { caduto(); });
  QMetaObject::invokeMethod(
      socket_,
      [debole = weak_from_this()] {
        if (const auto vivo = debole.lock()) vivo->leggi();
      },
      Qt::QueuedConnection);
}

void RealCanale::invia(QByteArrayView dati) {
  if (!aperto()) return;
  socket_->write(dati.data(), dati.size());
  socket_->flush();
}

// What was sent still goes out; only then does the connection end.
void RealCanale::chiudi() {
  chiuso_ = true;
  socket_->disconnect();
  socket_->disconnectFromHost();
}

void RealCanale::leggi() {
  if (chiuso_) return;
  const auto vivo = shared_from_this();
  const QByteArray dati = socket_->readAll();
  if (const auto arrivo = Arrivo; arrivo && !dati.isEmpty()) arrivo(dati);
}

void RealCanale::caduto() {
  const auto vivo = shared_from_this();
  leggi();
  if (const auto caduta = Caduta; caduta && !chiuso_) caduta();
}

}  // namespace lokera::simulazione
