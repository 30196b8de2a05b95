#pragma once

#include "adapters/real_machine.h"
#include "platform/polled_wait.h"
#include "simulation/servizio/real_rete.h"

namespace lokera {

using simulazione::Canale;
using simulazione::RealRete;

/// A console's socket and a cabinet that answers every frame with the same bytes, on loopback.
struct BancoReale {
  explicit BancoReale(QString host) : host(std::move(host)) {
    socket->DataArrival = [this](qsizetype) { arrivi.append(socket->GetData()); };
  }

  bool ascolta(quint16 porta) {
    return rete.ascolta_tcp(host, porta, [this](auto nuovo) {
      canale = std::move(nuovo);
      canale->Arrivo = [this](QByteArrayView dati) { canale->invia(dati); };
      canale->Caduta = [this] { ++cadute; };
    });
  }
  bool connetti(quint16 porta) {
    socket->Connect(host, porta);
    return attesa.attendi(5, [this] { return socket->State() == socket_connesso && canale; });
  }
  bool arrivati(qsizetype quanti) {
    return attesa.attendi(5, [&] { return arrivi.size() >= quanti; });
  }

  RealMachine computer;
  Machine pc = computer.macchina();
  PolledWait attesa{pc.orologio, pc.ciclo};
  QString host;
  RealRete rete;
  std::shared_ptr<Canale> canale;
  std::unique_ptr<Winsock> socket = pc.socket.crea_winsock();
  QByteArrayList arrivi;
  int cadute = 0;
};

}  // namespace lokera
