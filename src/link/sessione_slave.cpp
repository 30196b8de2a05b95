#include "link/sessione_slave.h"

#include <utility>

#include "link/porte.h"

namespace lokera {

using namespace Qt::StringLiterals;

SessioneSlave::SessioneSlave(WinsockFactory& fabbrica, PolledWait& attesa, Scambio& scambio,
                             const LokeraCorrente& corrente, Label& lblStatus)
    : wsk_(fabbrica, attesa), scambio_(scambio), corrente_(corrente), lblStatus_(lblStatus) {
  wsk_.arrivato = [this](const QByteArray& frame, bool /*suo*/) { wsk_DataArrival(frame); };
}

void SessioneSlave::connessione_socket() {
  const qlonglong numero = corrente_.id();
  const bool connessa = wsk_.connetti(corrente_.indirizzo(), porta_slave, 5);
  if (connessa) lokera_ = numero;
  lblStatus_.Caption = connessa ? u"ON Line"_s : u"OFF Line"_s;
}

qlonglong SessioneSlave::lokera() const {
  return lokera_.value_or(corrente_.id());
}

void SessioneSlave::rinumerata(qlonglong vecchio, qlonglong nuovo) {
  if (lokera_ == vecchio) lokera_ = nuovo;
}

void SessioneSlave::wsk_DataArrival(QByteArray frame) {
  if (richiesta) richiesta(frame);
  scambio_.buffer_ricezione = std::move(frame);
}

}  // namespace lokera
