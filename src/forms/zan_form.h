#pragma once

#include <QString>

#include "forms/finestra.h"
#include "forms/traduttore.h"
#include "platform/clock.h"
#include "platform/dialogs.h"
#include "store/database.h"
#include "store/recordset.h"

namespace lokera {

/// Cleans the row that is being saved: no Null and no empty text in a text column (one blank instead), no
/// Null in a numeric column (0 instead).
void pulisci_valori(Recordset& rs);

/// Binds the controls of one window to the columns of one record, by their `Tag`: a column's name, then
/// perhaps a group word in parentheses; for an option button the column, "=" and a value.
class ZanForm {
 public:
  ZanForm(Database& db, MessageBox& messaggi, const Clock& orologio);

  void Form(Finestra* finestra) { finestra_ = finestra; }
  /// Text of the last error, empty after a success.
  const QString& errore() const { return errore_; }

  void update_record(Recordset& rs);

  /// Whether the record is `operatore`'s now. A lock of another user shows a message.
  bool blocca_record(const QString& tabella, const QString& chiave, const QString& operatore);
  void sblocca_record(const QString& tabella, const QString& chiave, const QString& operatore);

  void pulisci();
  void popola(const QString& sql, const QString& gruppo = {});
  void salva_campi(Recordset& rs, const QString& gruppo = {});

 private:
  void scrivi_blocco(Recordset& rs, const QString& tabella, const QString& chiave, const QString& operatore);
  void mostra_blocco(const QString& chiave, const QString& operatore);

  Database& db_;
  Traduttore traduttore_;
  MessageBox& messaggi_;
  const Clock& orologio_;
  Finestra* finestra_ = nullptr;
  QString errore_;
};

}  // namespace lokera
