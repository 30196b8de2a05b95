#include "bench/lokera_misure.h"

#include <QCoreApplication>
#include <QTcpServer>
#include <QTcpSocket>
#include <QUdpSocket>

#include "adapters/base/qt_clock.h"
#include "adapters/base/qt_timer.h"
#include "bench/figlio.h"
#include "bench/misura.h"
#include "bench/sito_misure.h"
#include "link/protocollo.h"
#include "platform/momento.h"
#include "simulation/cabinet/cabinet_server.h"
#include "simulation/servizio/real_rete.h"

namespace lokera::bench {

using namespace lokera::simulazione;

namespace {

void riempi(Cabinet& cabinet, RegistroEventi& registro, int transazioni) {
  const QDateTime inizio = momento(QDate(2008, 1, 7), QTime(6, 0));
  for (int i = 0; i < transazioni; ++i) {
    const simulazione::MovimentoChiave m{i % 2 == 0 ? prelievo : restituzione,
                                         SitoMisure::tessera(i % 50).toLatin1(),
                                         SitoMisure::chiave(i / 2 % 50).toLatin1(), inizio.addSecs(i * 61LL)};
    cabinet.memorizza(registro.evento(cabinet.nome(), m, Come::memoria), m);
  }
}

void rimanda(QTcpServer& server) {
  QTcpSocket* socket = server.nextPendingConnection();
  socket->setSocketOption(QAbstractSocket::LowDelayOption, 1);
  QObject::connect(socket, &QTcpSocket::readyRead, socket, [socket] {
    socket->write(socket->readAll());
    socket->flush();
  });
}

}  // namespace

void vivi_lokera(const QString& indirizzo, int transazioni, const std::function<void()>& pronto) {
  const Applicazione app;
  const QString host = normalizza_ip(indirizzo);
  const QtClock orologio;
  QtTimers timer;
  RealRete rete;
  simulazione::RegistroEventi registro;
  Cabinet cabinet({.indirizzo = host}, orologio, registro);
  riempi(cabinet, registro, transazioni);
  CabinetServer server(cabinet, rete, orologio, timer);
  QTcpServer eco;
  QObject::connect(&eco, &QTcpServer::newConnection, &eco, [&eco] { rimanda(eco); });
  if (!server.apri() || !eco.listen(QHostAddress(host), porta_eco)) rinuncia("indirizzo occupato");
  pronto();
  QCoreApplication::exec();
}

}  // namespace lokera::bench
