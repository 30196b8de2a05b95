#include "link/sessione_slave.h"

#include "link/protocollo.h"

namespace lokera {

using namespace Qt::StringLiterals;

namespace {
constexpr quint16 porta_slave = 10002;
}

SessioneSlave::SessioneSlave(WinsockFactory& fabbrica, PolledWait& attesa, Scambio& scambio,
                             const LokeraCorrente& corrente, Label& lblStatus)
    : wsk(fabbrica.crea_winsock()),
      attesa_(attesa),
      scambio_(scambio),
      corrente_(corrente),
      lblStatus_(lblStatus) {
  wsk->DataArrival = [this](qsizetype n) { wsk_DataArrival(n); };
}

void SessioneSlave::connessione_socket() {
  const QString indirizzo = corrente_.indirizzo();
  const qlonglong numero = corrente_.id();
  wsk->Close();
  wsk->Protocol(Protocol::tcp);
  wsk->RemoteHost(indirizzo);
  wsk->RemotePort(porta_slave);
  wsk->Connect(indirizzo, porta_slave);
  const bool connessa = attesa_.attendi(5, [this] { return wsk->State() == socket_connesso; });
  if (connessa) lokera_ = numero;
  lblStatus_.Caption = connessa ? u"ON Line"_s : u"OFF Line"_s;
}

qlonglong SessioneSlave::lokera() const {
  return lokera_.value_or(corrente_.id());
}

void SessioneSlave::wsk_DataArrival(qsizetype /*bytesTotal*/) {
  scambio_.buffer_ricezione = wsk->GetData();
  if (!solo_ascii(scambio_.buffer_ricezione)) return;
  if (richiesta) richiesta(scambio_.buffer_ricezione);
}

}  // namespace lokera
