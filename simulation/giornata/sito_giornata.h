#pragma once

#include <memory>
#include <vector>

#include "simulation/giornata/giornata.h"
#include "simulation/macchina/virtual_machine.h"
#include "simulation/sito/persone.h"
#include "store/connection.h"

namespace lokera::simulazione {

/// The site of a day: what its database holds, and its cabinets with their people.
///
/// Every pair of groups that has bands has one in the morning of every day type, all closed at noon and at
/// midnight. So at the end of the day, in the early afternoon, each band has closed since the last change of
/// day type, and the masks that the database asks for are those that a cabinet was sent last. Every
/// cabinet holds a key of each group: one without is not told of that group's bands.
class SitoGiornata {
 public:
  struct Posto {
    std::unique_ptr<Cabinet> cabinet;
    std::unique_ptr<CabinetServer> server;
    std::unique_ptr<Persone> persone;
  };

  SitoGiornata(const ImpostazioniGiornata& impostazioni, VirtualMachine& vm, RegistroEventi& registro);

  /// The rows of the site, for a new file.
  Errore riempi(Connection& connessione);
  /// False when an address can't be had.
  bool apri();
  void persone(bool attive);
  /// Nobody is served and nothing waits in a store.
  bool quieto() const;

  std::vector<Posto>& posti() { return posti_; }
  const std::vector<Posto>& posti() const { return posti_; }
  Caso& caso() { return caso_; }

  /// Codes have no zero, so that no piece of a record looks like a frame.
  static QString codice_tessera(int i);
  static QString codice_chiave(int i);
  static constexpr int gruppi_chiavi = 4;
  static constexpr int gruppi_operatori = 3;
  int tessere() const { return 10 + impostazioni_.lokere / 2; }

 private:
  Errore lokere(Connection& c) const;
  Errore chiavi(Connection& c);
  Errore tessere(Connection& c);
  Errore fasce(Connection& c);
  Errore fasce_di(Connection& c, int operatori, int chiavi);
  Posto crea(int ordine, VirtualMachine& vm, RegistroEventi& registro) const;

  ImpostazioniGiornata impostazioni_;
  Caso caso_;
  std::vector<Posto> posti_;
};

}  // namespace lokera::simulazione
