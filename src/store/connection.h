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

  /// Runs one statement that yields no rows.
  Errore Execute(const QString& sql, const QVariantList& valori = {});
  /// The same; returns how many rows it touched, -1 for one that is no insert, update or delete.
  Esito<qint64> esegui_contando(const QString& sql, const QVariantList& valori = {});

  /// Whether the statement yields rows, told from its columns; it isn't run.
  Esito<bool> restituisce_righe(const QString& sql);

  Errore BeginTrans();
  Errore CommitTrans();
  void RollbackTrans();
  bool in_transazione() const;

  /// A number that differs after any change to the table made through this connection, and after any change
  /// to the file made by another console. Costs less than a query.
  quint64 versione_tabella(const QString& tabella) const;
  /// How many rows were written through this connection so far, those of transactions that were rolled back
  /// too: where it grows, the right to write was had.
  qint64 righe_scritte() const;
  /// How many statements were asked for so far, whatever became of them.
  qint64 istruzioni() const;

  /// How long (ms) a statement waits for another console's lock before it fails. Short, since it holds the
  /// loop.
  static constexpr int attesa_blocco_ms = 250;

 private:
  void attesa_blocco(int ms);  ///< also before the file is open
  friend class Recordset;
  friend Errore tutto_o_niente(Connection&, const std::function<Errore()>&);
  friend class SenzaAttesa;
  struct Motore;
  std::unique_ptr<Motore> motore_;
};

/// While one lives, a statement that meets another console's lock fails at once: for what isn't worth a wait,
/// and for who lets the loop run between his tries. It may begin before the file is open.
class SenzaAttesa {
 public:
  explicit SenzaAttesa(Connection& connessione);
  ~SenzaAttesa();
  SenzaAttesa(const SenzaAttesa&) = delete;
  SenzaAttesa& operator=(const SenzaAttesa&) = delete;

 private:
  Connection& connessione_;
  const int prima_;
};

/// Runs `lavoro` as one transaction. The work runs only when the transaction has begun; it is committed when
/// the work returns no failure, and otherwise nothing of it is kept. Returns the failure of the beginning,
/// the work or the commit. What it has committed is durable, so it fails when a transaction is open already.
Errore in_transazione(Connection& connessione, const std::function<Errore()>& lavoro);

/// All of `lavoro` or nothing of it: inside an open transaction as a part of that, which alone makes it
/// durable, otherwise `in_transazione`.
Errore tutto_o_niente(Connection& connessione, const std::function<Errore()>& lavoro);

}  // namespace lokera
