#pragma once

#include <QDateTime>
#include <QString>
#include <QVariant>

#include <memory>

#include "store/connection.h"

namespace lokera {

/// The numbers by which the system knows a column's type.
enum class TipoCampo {
  intero_breve = 2,  ///< `integer`, 16 bits
  intero = 3,        ///< `long`, 32 bits
  doppio = 5,
  data = 7,
  booleano = 11,
  numerico = 131,
  testo_stretto = 200,
  testo = 202,
  memo = 203,
};

constexpr bool e_testo(TipoCampo t) {
  return t == TipoCampo::testo || t == TipoCampo::testo_stretto || t == TipoCampo::memo;
}
constexpr bool e_numero(TipoCampo t) {
  return t == TipoCampo::intero_breve || t == TipoCampo::intero || t == TipoCampo::doppio ||
         t == TipoCampo::numerico;
}

struct Campo {
  QString nome;
  TipoCampo tipo;
  int dimensione;  ///< DefinedSize: characters of a text column, bytes of the others
};

enum class Cursore { sola_lettura, aggiornabile };

/// The value as a column of this type holds it: numeric text becomes a number, a written date (day first) a
/// date, a truth value 1 or 0. What can't be converted is an error that names the column; sizes are the
/// store's to check.
Esito<QVariant> converti_valore(const Campo& campo, const QVariant& valore);

/// A value as people read it; empty for Null.
QString testo_valore(const QVariant& valore);

/// The rows of one query, from the first to the last. Column names are found without regard to case.
///
/// A read-only recordset steps through the query as it is read and holds one row. An updatable one (a query
/// on a single table) holds its rows from the moment of Open; changes go to the row that was read, by its
/// identity.
class Recordset {
 public:
  Recordset();
  ~Recordset();
  Recordset(const Recordset&) = delete;
  Recordset& operator=(const Recordset&) = delete;

  /// Stands on the first row, or `eof()` when there is none. After a failure the recordset is closed.
  Errore Open(const QString& sql, Connection& connessione, const QVariantList& valori = {},
              Cursore cursore = Cursore::sola_lettura);
  void Close();
  bool aperto() const;

  bool eof() const;
  /// A failure of the engine while stepping ends the recordset (`eof()`), and is returned.
  Errore MoveNext();

  int conta_campi() const;
  const Campo& campo(int indice) const;  ///< counted from 0
  int indice(QStringView nome) const;    ///< -1 when there is no such column

  /// The value in the current row (or in the row being added or changed). An invalid QVariant for Null, for
  /// an unknown column and at eof. Dates come as QDateTime, numbers as qlonglong or double, booleans as bool.
  QVariant valore(int indice) const;
  QVariant valore(QStringView nome) const;
  QString testo(QStringView nome) const;     ///< empty for Null, a date as `testo_italiano` has it
  qlonglong numero(QStringView nome) const;  ///< 0 for Null
  bool nullo(int indice) const;

  /// The stored text of a cell of a read-only recordset as it lies in the engine: UTF-8, no copy, empty for
  /// Null; valid until the next MoveNext or Close. Dates have the form "yyyy-MM-dd HH:mm:ss".
  QByteArrayView testo_grezzo(int indice) const;

  /// For updatable recordsets. `imposta` writes into the current or the new row in memory; an unknown column
  /// is an error. Update stores it: after a failure nothing is stored and the edit is still pending
  /// (CancelUpdate drops it). Moving on or adding another row while an edit is pending stores it first. After
  /// an AddNew the recordset stands on the new row, behind all others.
  Errore AddNew();
  Errore imposta(QStringView nome, const QVariant& valore);
  Errore imposta(int indice, const QVariant& valore);
  Errore Update();
  void CancelUpdate();
  Errore Delete();

 private:
  struct Stato;
  std::unique_ptr<Stato> stato_;
};

}  // namespace lokera
