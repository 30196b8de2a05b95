#pragma once

#include <memory>
#include <vector>

#include "simulation/servizio/opzioni.h"
#include "simulation/sito/persone.h"

namespace lokera::simulazione {

/// All cabinets of one run, each with its people and its part of the scenario.
class Impianto {
 public:
  /// All arguments but the options must outlive the installation.
  Impianto(const OpzioniSimulatore& opzioni, Rete& rete, const Clock& clock, TimerFactory& timer,
           RegistroEventi& registro);

  /// The address that can't be listened on; empty when all cabinets listen.
  QString apri();
  /// People come and the scenario starts.
  void inizia();
  void basta_prelievi();
  void chiudi();

  /// What the cabinets hold, one a line, fields separated by tabs. The address in second place is the one
  /// that the cabinet began with:
  ///   operatore    address  position  code  mask
  ///   chiave       address  position  code
  ///   gancio       address  position  code  dentro|fuori  card or "-"
  ///   transazioni  address  number still stored
  ///   riavvii      address  number of resets
  ///   rete         address  address  port  mask  gateway
  ///   parametri    address  the eight numbers of the wire, in its order
  ///   orologio     address  what its clock shows
  QByteArray archivio() const;

  /// Every frame: cabinet, port, '<' to the cabinet or '>' from it, text.
  std::function<void(const QString& cabinet, quint16 porta, char verso, QByteArrayView frame)> Parla;

 private:
  struct Posto {
    std::unique_ptr<Cabinet> cabinet;
    std::unique_ptr<CabinetServer> server;
    std::unique_ptr<Persone> persone;
    std::unique_ptr<Copione> copione;
  };
  Posto crea(const OpzioniSimulatore& opzioni, int ordine, Rete& rete, RegistroEventi& registro);

  const Clock& clock_;
  TimerFactory& timer_;
  std::vector<Posto> posti_;
};

}  // namespace lokera::simulazione
