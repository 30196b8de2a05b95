#include "adapters/base/qt_winsock.h"

#include <QNetworkDatagram>
#include <QSysInfo>

namespace lokera {

namespace {
constexpr int socket_aperto = 1;
constexpr int socket_in_connessione = 6;
constexpr int socket_in_chiusura = 8;
}  // namespace

QtWinsock::QtWinsock() {
  QObject::connect(&tcp_, &QTcpSocket::readyRead, &posta_, [this] { leggi_tcp(); });
  QObject::connect(&tcp_, &QTcpSocket::disconnected, &posta_, [this] { leggi_tcp(); });
  QObject::connect(&udp_, &QUdpSocket::readyRead, &posta_, [this] { leggi_udp(); });
  // The frames are a few bytes each way: no gathering of small packets.
  QObject::connect(&tcp_, &QTcpSocket::connected, &posta_,
                   [this] { tcp_.setSocketOption(QAbstractSocket::LowDelayOption, 1); });
  resto_.setSingleShot(true);
  resto_.setTimerType(Qt::PreciseTimer);
  resto_.setInterval(Ricompositore::attesa_resto);
  QObject::connect(&resto_, &QTimer::timeout, &posta_, [this] { resto_scaduto(); });
}

QtWinsock::~QtWinsock() {
  tcp_.disconnect(&posta_);
  udp_.disconnect(&posta_);
}

void QtWinsock::Connect(const QString& indirizzo, quint16 porta) {
  Close();
  indirizzo_ = indirizzo;
  porta_ = porta;
  // What is no address would be looked up as a name, and 0.0.0.0 is this computer.
  const QHostAddress a(indirizzo);
  if (a.protocol() == QAbstractSocket::IPv4Protocol && a != QHostAddress(QHostAddress::AnyIPv4))
    tcp_.connectToHost(a, porta);
}

void QtWinsock::SendData(QByteArrayView dati) {
  if (protocollo_ == Protocol::udp) return manda_datagramma(dati);
  if (tcp_.state() != QAbstractSocket::ConnectedState) return;
  tcp_.write(dati.data(), dati.size());
  tcp_.flush();  // now, not at the next turn of the loop
}

// The answers come back to the port that the first datagram went out from, until Close.
void QtWinsock::manda_datagramma(QByteArrayView dati) {
  if (udp_.state() != QAbstractSocket::BoundState) udp_.bind(QHostAddress(QHostAddress::AnyIPv4));
  udp_.writeDatagram(dati.data(), dati.size(), QHostAddress(indirizzo_), porta_);
}

QByteArray QtWinsock::GetData() {
  if (protocollo_ == Protocol::tcp) return frame_.prendi();
  return datagrammi_.isEmpty() ? QByteArray() : datagrammi_.takeFirst();
}

void QtWinsock::Close() {
  tcp_.abort();
  udp_.abort();
  resto_.stop();
  frame_.svuota();
  datagrammi_.clear();
}

int QtWinsock::State() const {
  if (protocollo_ == Protocol::udp) {
    return udp_.state() == QAbstractSocket::BoundState ? socket_aperto : socket_chiuso;
  }
  switch (tcp_.state()) {
    case QAbstractSocket::UnconnectedState:
      return socket_chiuso;
    case QAbstractSocket::ConnectedState:
      return socket_connesso;
    case QAbstractSocket::ClosingState:
      return socket_in_chiusura;
    default:
      return socket_in_connessione;
  }
}

QString QtWinsock::LocalHostName() const {
  return QSysInfo::machineHostName();
}

void QtWinsock::leggi_tcp() {
  if (!tcp_.isOpen()) return;
  const QByteArray dati = tcp_.readAll();
  if (dati.isEmpty()) return;
  frame_.arriva(dati);
  if (frame_.resto())
    resto_.start();
  else
    resto_.stop();
  annuncia();
}

void QtWinsock::resto_scaduto() {
  frame_.consegna_resto();
  annuncia();
}

void QtWinsock::leggi_udp() {
  while (udp_.hasPendingDatagrams()) datagrammi_.append(udp_.receiveDatagram().data());
  annuncia();
}

qsizetype QtWinsock::quanti() const {
  return protocollo_ == Protocol::tcp ? frame_.quanti() : datagrammi_.size();
}

void QtWinsock::annuncia() {
  if (quanti() == 0 || std::exchange(annunciato_, true)) return;
  QMetaObject::invokeMethod(
      &posta_, [this] { consegna(); }, Qt::QueuedConnection);
}

void QtWinsock::consegna() {
  annunciato_ = false;  // first: while the handler waits, what comes must be announced again
  const qsizetype prima = quanti();
  if (prima == 0) return;  // closed, or fetched already
  if (prima > 1) annuncia();
  const qsizetype lungo = protocollo_ == Protocol::tcp ? frame_.lunghezza() : datagrammi_.first().size();
  if (const auto evento = DataArrival) evento(lungo);
}

}  // namespace lokera
