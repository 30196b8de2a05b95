#pragma once

#include <QString>
#include <QVariant>

#include <vector>

#include "forms/ss_ole_db_grid.h"
#include "forms/traduttore.h"
#include "platform/dialogs.h"
#include "platform/polled_wait.h"
#include "store/recordset.h"

namespace lokera {

class LetturaATratti;

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

  /// Builds the columns. Never fails: without rows in the layout table the model query decides, and when that
  /// fails too the columns stay as they are. `larghezza_griglia` in the grid's units, for the fitting.
  void layout(Connection& conn_layout, const QString& nome_form, const QString& nome_griglia,
              Connection& conn_dati, const QString& sql_modello, int larghezza_griglia = 0);

  /// The column of this field is never shown, whatever the layout table says of it. Before `layout`.
  void riserva(const QString& campo) { riservati_ += campo; }

  /// Fills the list. Runs the event loop now and then, so that input is taken during a long filling; a popola
  /// of the same list that starts in one of those moments takes its place. Others may write to the file in
  /// them: a row that stays as it is comes exactly once. On an error the description is shown and the list is
  /// empty. Returns whether the list holds the whole result.
  bool popola(Connection& conn, const QString& sql, const QVariantList& valori = {});

  /// Copies the row into the current row of `rs`. Skips what fails.
  void salva_record(Recordset& rs, int riga);

  /// Writes every row of the list as a new row of `rs`. `valori`: field names and values in turn, each ended
  /// by a tab. On a failure shows the message, closes `rs` and stops; `errore_salvataggio` says so. The
  /// caller has begun the transaction and ends it. The message lets the loop run, so inside a transaction use
  /// a `SalvataggioLista`, end the transaction, then show its error; `sostituisci_tabelle` does all of it.
  void salva_tutto(Recordset& rs, const QString& valori = {});
  /// Whether the last saving failed.
  bool errore_salvataggio() const { return errore_salvataggio_; }

  Colore colore1 = colore_di_serie;
  Colore colore2 = colore_di_serie;

  SSOleDBGrid& grd() const { return grd_; }

 private:
  friend class SalvataggioLista;

  bool colonne_da_tabella(Connection& conn, const QString& nome_form, const QString& nome_griglia);
  void colonne_da_modello(Connection& conn, const QString& sql);
  void imposta_colonne(std::vector<Colonna> colonne);
  void adatta(int larghezza_griglia);
  bool riempi(LetturaATratti& lettura);
  Errore riempi_tratto(LetturaATratti& lettura);
  bool popolamento_fallito(const Errore& errore);

  SSOleDBGrid& grd_;
  ServiziGriglia& servizi_;
  QStringList riservati_;
  bool errore_salvataggio_ = false;
};

}  // namespace lokera
