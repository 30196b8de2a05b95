#pragma once

#include <QTcpSocket>

#include "simulation/comune/rete.h"

namespace lokera::simulazione {

/// The cabinet's end of a connection on a real socket. It closes when the cabinet lets go of it.
class RealCanale : public Canale, public std::enable_shared_from_this<RealCanale> {
 public:
  /// Takes over the socket. Call ascolta() once it is held by a shared_ptr.
  explicit RealCanale(QTcpSocket* socket);
  ~RealCanale() override;
  Q_DISABLE_COPY_MOVE(RealCanale)

  /// Starts reporting; what has come already is reported from the event loop.
  void ascolta();

  void invia(QByteArrayView dati) override;
  void chiudi() override;
  bool aperto() const override { return socket_->state() == QAbstractSocket::ConnectedState; }
  QString indirizzo() const { return indirizzo_; }

 private:
  void leggi();
  void caduto();

  QTcpSocket* socket_;  // given to deleteLater: the cabinet may let go inside the socket's own signal
  QString indirizzo_;
  bool chiuso_ = false;  // by the cabinet
};

}  // namespace lokera::simulazione
