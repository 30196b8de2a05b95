#pragma once

#include <QHash>
#include <QString>
#include <QVariantList>

#include <list>
#include <memory>
#include <sqlite3.h>
#include <vector>

#include "store/dialetto.h"
#include "store/errore.h"
#include "store/recordset.h"

namespace lokera {

/// One prepared statement. Whoever holds it has it to himself and resets it when done.
class Statement {
 public:
  ~Statement();
  Statement() = default;
  Statement(const Statement&) = delete;
  Statement& operator=(const Statement&) = delete;

  static Esito<std::shared_ptr<Statement>> prepara(sqlite3* db, QStringView sql);

  sqlite3_stmt* grezzo() const { return stmt_; }
  TipoIstruzione tipo() const { return tipo_; }
  const QString& tabella() const { return tabella_; }
  std::vector<Campo>& campi() { return campi_; }

  Errore lega(const QVariantList& valori);
  void azzera();
  /// After the first step: the columns may have become others with the tables, and a computed column takes
  /// its type from its value.
  void osserva_riga();

 private:
  void leggi_campi();

  sqlite3_stmt* stmt_ = nullptr;
  TipoIstruzione tipo_ = TipoIstruzione::altro;
  QString tabella_;
  std::vector<Campo> campi_;
  std::vector<int> calcolati_;
};

/// Binds one value, `posizione` counted from 1.
int lega_valore(sqlite3_stmt* stmt, int posizione, const QVariant& valore);

/// Reads one cell as its column's type has it.
QVariant leggi_valore(sqlite3_stmt* stmt, int indice, TipoCampo tipo);

/// Prepared statements by their text, the least used ones dropped. One that somebody holds is never handed
/// out a second time: the second asker gets a copy of his own.
class CacheStatement {
 public:
  Esito<std::shared_ptr<Statement>> prendi(sqlite3* db, const QString& sql);
  void svuota();

  static constexpr size_t capienza = 200;

 private:
  struct Voce {
    QString sql;
    std::shared_ptr<Statement> statement;
  };
  std::list<Voce> voci_;  ///< the latest one first
  QHash<QString, std::list<Voce>::iterator> indice_;
};

}  // namespace lokera
