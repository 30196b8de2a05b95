#pragma once

#include <QString>

#include "forms/ss_ole_db_grid.h"
#include "forms/traduttore.h"
#include "platform/dialogs.h"
#include "platform/polled_wait.h"
#include "store/recordset.h"

namespace lokera {

/// What the lists of the windows need of the console; lives as long as it.
struct ServiziGriglia {
  Traduttore& traduttore;
  MessageBox& messaggi;
  PolledWait& attesa;
  int larghezza_schermo = 1024;  ///< pixels
};

/// The class behind every list: columns from the layout table or from a model query, filling, saving back.
class griglia {
 public:
  griglia(SSOleDBGrid& grd, ServiziGriglia& servizi);

  static constexpr Colore colore_di_serie = 0xE6E6E6;
  void defaults(Colore colore1 = colore_di_serie, Colore colore2 = colore_di_serie);

  /// Builds the columns. Never fails: without rows in the layout table the model query decides, and when that fails
  /// too the columns stay as they are. `larghezza_griglia` in the grid's units, for the fitting.
  void layout(Connection& conn_layout, const QString& nome_form, const QString& nome_griglia, Connection& conn_dati,
              const QString& sql_modello, int larghezza_griglia = 0);

  /// Fills the list. Runs the event loop now and then, so that input is taken during a long filling; a popola of
  /// the same list that starts in one of those moments takes its place. On an error the description is shown and
  /// the list is empty. Returns whether the list holds the whole result.
  bool popola(Connection& conn, const QString& sql, const QVariantList& valori = {});

  /// Copies the row into the current row of `rs`. Skips what fails.
  void salva_record(Recordset& rs, int riga);

  /// Writes every row of the list as a new row of `rs`. `valori`: field names and values in turn, each ended by a
  /// tab. On a failure shows the message, closes `rs` and stops; `errore_salvataggio` says so. The caller has begun
  /// the transaction and ends it.
  void salva_tutto(Recordset& rs, const QString& valori = {});
  bool errore_salvataggio() const { return errore_salvataggio_; }

  Colore colore1 = colore_di_serie;
  Colore colore2 = colore_di_serie;

 private:
  SSOleDBGrid& grd_;
  ServiziGriglia& servizi_;
  bool errore_salvataggio_ = false;
  quint64 riempimento_ = 0;  ///< number of the latest popola
};

}  // namespace lokera
