#pragma once

#include <QString>

#include <functional>
#include <memory>

#include "cards/servizi_tessere.h"
#include "platform/machine.h"
#include "reports/menu_scheda.h"
#include "reports/servizi_stampa.h"
#include "supervisor/gestore_finestre.h"
#include "supervisor/supervisore.h"

namespace lokera {

/// A whole console on a machine: the database, what all windows share, the main window and the others.
class Console {
 public:
  /// The machine outlives the console. `istanza_precedente` tells whether another console runs on this
  /// computer with this database already.
  explicit Console(const Machine& macchina, std::function<bool()> istanza_precedente = {});
  ~Console();

  /// Opens `lokera.mdb` in the folder and makes the main window, not yet loaded. Waits for another console's
  /// lock (see `AttesaBlocco`) and runs the loop meanwhile. On a failure shows the message, ends the program
  /// and returns false.
  bool apri(const QString& cartella);

  // From a good `apri` on.
  frm_Main& principale() { return parti_->principale; }
  Supervisore& parti() { return *parti_; }
  Database& db() { return db_; }
  ElencoFinestre& elenco() { return elenco_; }
  Traduttore& traduttore() { return traduttore_; }
  ServiziGriglia& griglie() { return griglie_; }
  GestoreFinestre& finestre() { return finestre_; }
  const Machine& macchina() const { return macchina_; }
  const CatalogoFinestre& catalogo() const { return catalogo_; }

 private:
  void riempi_catalogo();
  void riempi_catalogo_lokere();
  void riempi_catalogo_elenchi();
  void collega_totali();
  ServiziTessere servizi_tessere();
  ServiziStampa servizi_stampa();
  ServiziScheda servizi_scheda();
  void importa_da_scheda();
  void aggiorna_tabellone();

  Machine macchina_;
  std::function<bool()> istanza_precedente_;
  QString cartella_;  ///< of the program
  Database db_;
  ElencoFinestre elenco_;
  PolledWait attesa_;
  Traduttore traduttore_;
  ServiziGriglia griglie_;
  std::unique_ptr<Supervisore> parti_;
  CatalogoFinestre catalogo_;
  GestoreFinestre finestre_;  ///< its windows go first: they stand on all of the above
};

}  // namespace lokera
