#pragma once

#include <QHash>

#include <functional>
#include <vector>

#include "forms/griglia.h"

namespace lokera {

/// One saving of a list: an object writes its rows once, and knows then what was refused.
class SalvataggioLista {
 public:
  explicit SalvataggioLista(griglia& lista);

  /// Called for each row after its cells were copied and before it is stored.
  using Completa = std::function<void(Recordset& rs, int riga)>;
  /// `griglia::salva_tutto` without the message. Returns whether all rows were written; closes `rs`.
  bool scrivi_tutto(Recordset& rs, const QString& valori = {}, const Completa& completa = {});
  void salva_record(Recordset& rs, int riga);

  /// The first failure; a success when there was none.
  const Errore& errore() const { return errore_; }
  /// What was written is lost behind this failure of the transaction around it.
  void annulla(const Errore& errore);
  /// The message of the failure, with the refused row as the current one. Runs the loop.
  void mostra_errore();

 private:
  void annota(const Errore& errore);
  void salva_cella(Recordset& rs, int riga, int colonna, int indice);
  void salva_celle(Recordset& rs, int riga, const std::vector<int>& indici);
  bool salva_riga(Recordset& rs, int riga, const std::vector<int>& indici, const QStringList& valori,
                  const Completa& completa);
  QVariant data_letta(const QString& testo);
  std::vector<int> indici(const Recordset& rs) const;  ///< the field of each column, -1 for none

  griglia& lista_;
  SSOleDBGrid& grd_;
  QHash<QString, QVariant> date_lette_;
  int riga_rifiutata_ = -1;
  Errore errore_;
};

/// One table that takes the rows of a list in place of its own.
struct TabellaDaLista {
  griglia& lista;
  QString cancella;  ///< statement that empties the table
  QString apri;      ///< query whose rows are the table
  SalvataggioLista::Completa completa = {};
  std::function<Errore()> prima = {};  ///< runs inside the transaction, before the table is emptied
  std::function<Errore()> dopo = {};   ///< the same, once the table has its new rows
};

/// Replaces the tables by the lists in one transaction, all or nothing. On a failure everything is as it was
/// and, with the transaction ended, the message is shown; returns false.
bool sostituisci_tabelle(Connection& conn, const std::vector<TabellaDaLista>& tabelle);

}  // namespace lokera
