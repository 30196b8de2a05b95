#pragma once

#include <functional>
#include <optional>

#include "link/conversazione.h"
#include "link/lokera_corrente.h"
#include "link/scambio.h"

namespace lokera {

/// The live session of a managed cabinet, cabinet port 10002. Once lost it stays lost until the program is
/// started again; `lblStatus` keeps what the connection gave.
class SessioneSlave {
 public:
  SessioneSlave(WinsockFactory& fabbrica, PolledWait& attesa, Scambio& scambio,
                const LokeraCorrente& corrente, Label& lblStatus);

  /// Returns when connected or given up after more than five seconds; the result stands in `lblStatus`.
  void connessione_socket();

  /// Sends the answer to a request.
  void rispondi(QByteArrayView frame) { wsk_.invia(frame); }

  /// The cabinet at the other end, the `ID` of its row, wherever the cycle has gone since; the current one
  /// before the first connection, 0 for none.
  qlonglong lokera() const;

  /// The row of a cabinet has another `ID` now: who is at the other end stays the same cabinet.
  void rinumerata(qlonglong vecchio, qlonglong nuovo);

  QString nome_computer() const { return wsk_.nome_computer(); }

  /// Decides and answers at once; must not run the loop. Empties what it has answered.
  std::function<void(QByteArray& frame)> richiesta;

 private:
  void wsk_DataArrival(QByteArray frame);

  Conversazione wsk_;
  Scambio& scambio_;
  const LokeraCorrente& corrente_;
  Label& lblStatus_;
  std::optional<qlonglong> lokera_;
};

}  // namespace lokera
