#pragma once

#include <QList>
#include <QTcpSocket>
#include <QTimer>
#include <QUdpSocket>

#include "platform/ricompositore.h"
#include "platform/winsock.h"

namespace lokera {

/// A socket of the real network. What arrives is taken off the socket at once and announced by an event
/// posted to itself, so that the program's handler never runs inside a signal of the socket, where no second
/// one would come while the first waits.
class QtWinsock : public Winsock {
 public:
  QtWinsock();
  ~QtWinsock() override;
  Q_DISABLE_COPY_MOVE(QtWinsock)

  void Protocol(enum Protocol protocollo) override { protocollo_ = protocollo; }
  void RemoteHost(const QString& indirizzo) override { indirizzo_ = indirizzo; }
  void RemotePort(quint16 porta) override { porta_ = porta; }
  void Connect(const QString& indirizzo, quint16 porta) override;
  void SendData(QByteArrayView dati) override;
  QByteArray GetData() override;
  void Close() override;
  int State() const override;
  QString LocalHostName() const override;

 private:
  void manda_datagramma(QByteArrayView dati);
  void leggi_tcp();
  void leggi_udp();
  void resto_scaduto();
  qsizetype quanti() const;
  void annuncia();
  void consegna();

  enum Protocol protocollo_ = Protocol::tcp;
  QString indirizzo_;
  quint16 porta_ = 0;
  QTcpSocket tcp_;
  QUdpSocket udp_;
  Ricompositore frame_;
  QTimer resto_;
  QList<QByteArray> datagrammi_;
  bool annunciato_ = false;
  QObject posta_;  // what posted announcements go to; they end with it
};

class QtWinsocks : public WinsockFactory {
 public:
  std::unique_ptr<Winsock> crea_winsock() override { return std::make_unique<QtWinsock>(); }
};

}  // namespace lokera
