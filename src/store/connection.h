#pragma once

#include <QString>
#include <QVariantList>

#include <functional>
#include <memory>

#include "store/errore.h"

namespace lokera {

class Statement;

/// One open database. Statements are written in the system's own dialect (Jet's: brackets, #mm/dd/yyyy#, `top
/// n`, its column types), each value a `?` that is bound in order. Values are QVariant: invalid is Null, then
/// qlonglong, double, bool, QString, QDateTime. A time of day alone is a QDateTime on 30/12/1899 (see `ora`).
///
/// Not safe to use from two threads. Recordsets must be closed before their connection is destroyed.
class Connection {
 public:
  Connection();
  ~Connection();
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;

  /// Opens an existing encrypted file; never creates one. Fails on a missing or damaged file, on a wrong
  /// password, where the file or its folder can't be written, and when the durability settings can't be read
  /// back as they were set.
  Errore Open(const QString& file, const QString& password);
  /// Makes a new encrypted file without tables and opens it; fails when the file is there already and not
  /// empty.
  Errore crea(const QString& file, const QString& password);
  void Close();
  bool aperta() const;

  /// Runs one statement that yields no rows. `righe`, when given, receives how many rows it touched; -1 for
  /// one that is no insert, update or delete.
  Errore Execute(const QString& sql, const QVariantList& valori = {}, qint64* righe = nullptr);

  /// Whether the statement yields rows, told from its columns; it isn't run.
  Errore restituisce_righe(const QString& sql, bool& righe);

  Errore BeginTrans();
  Errore CommitTrans();
  void RollbackTrans();
  bool in_transazione() const;

  /// A number that differs after any change to the table made through this connection, and after any change
  /// to the file made by another console. Costs less than a query.
  quint64 versione_tabella(const QString& tabella) const;

  /// How long (ms) a statement waits for another console's lock before it fails. Short, since it holds the
  /// loop. Who lets the loop run between his tries asks for 0, also before the file is open.
  static constexpr int attesa_blocco_ms = 250;
  void attesa_blocco(int ms);

 private:
  friend class Recordset;
  struct Motore;
  std::unique_ptr<Motore> motore_;
};

/// A transaction that rolls back unless it was committed.
class Transazione {
 public:
  explicit Transazione(Connection& connessione);
  ~Transazione();
  Transazione(const Transazione&) = delete;
  Transazione& operator=(const Transazione&) = delete;
  /// The failure of the beginning, if it could not begin.
  const Errore& inizio() const { return inizio_; }
  /// After a failure nothing of the transaction is kept.
  Errore conferma();

 private:
  Connection& connessione_;
  Errore inizio_;
  bool aperta_;
};

}  // namespace lokera
