#pragma once

#include <functional>
#include <memory>
#include <optional>

#include "link/lokera_corrente.h"
#include "link/scambio.h"
#include "platform/polled_wait.h"
#include "platform/winsock.h"

namespace lokera {

/// The live session of a managed cabinet, cabinet port 10002. Once lost it stays lost until the program is
/// started again; `lblStatus` keeps what the connection gave.
class SessioneSlave {
 public:
  SessioneSlave(WinsockFactory& fabbrica, PolledWait& attesa, Scambio& scambio,
                const LokeraCorrente& corrente, Label& lblStatus);

  /// Returns when connected or given up after more than five seconds; the result stands in `lblStatus`.
  void connessione_socket();

  /// Fetches what came into `buffer_ricezione` and hands it to `richiesta`.
  void wsk_DataArrival(qsizetype bytesTotal);

  /// The cabinet at the other end, the `ID` of its row, wherever the cycle has gone since; the current one
  /// before the first connection, 0 for none.
  qlonglong lokera() const;

  std::unique_ptr<Winsock> wsk;
  /// Decides and answers at once; must not run the loop.
  std::function<void(QByteArray& buffer_ricezione)> richiesta;

 private:
  PolledWait& attesa_;
  Scambio& scambio_;
  const LokeraCorrente& corrente_;
  Label& lblStatus_;
  std::optional<qlonglong> lokera_;
};

}  // namespace lokera
