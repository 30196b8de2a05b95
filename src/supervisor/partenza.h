#pragma once

#include <functional>

#include "platform/machine.h"
#include "store/database.h"
#include "supervisor/attesa_blocco.h"

namespace lokera {

class Supervisore;
class Traduttore;

/// The start of the console, in its order, and its end when the file can't be read.
class Partenza {
 public:
  Partenza(const Machine& macchina, Database& db, Traduttore& traduttore, PolledWait& attesa,
           Supervisore& parti);

  /// Whether another console runs on this computer with this database already.
  std::function<bool()> istanza_precedente;

  /// Runs the loop: another console's lock is waited for, the live session is connected and the first visit
  /// is made inside. When it ends the program (a second instance, a file older than the program, or one that
  /// can't be read) it returns early.
  void avvia();

  /// Reads the cabinets of this computer, also after each change of their table while the program runs: the
  /// first is the current one, or none. When that is another cabinet or address than before, who talks with
  /// the one before ends. The live session stays as it is. On a file older than the program it runs the
  /// migration and ends the program; any other failure is shown, and what was read before stands.
  void trova_lokere_sistema();

 private:
  void a_riposo();
  void prime_visite();
  void disegna_tabellone();
  void in_lingua();  ///< what the main window writes itself, in the language as it is now
  Errore prepara_archivio();
  void archivio_illeggibile(const Errore& errore);
  AttesaBlocco attesa_blocco();
  Errore registra_release();
  Errore registra_computer();

  Machine macchina_;
  Database& db_;
  Traduttore& traduttore_;
  PolledWait& attesa_;
  Supervisore& parti_;
};

}  // namespace lokera
