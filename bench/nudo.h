#pragma once

#include <QByteArray>
#include <QString>

#include <sqlite3.h>

namespace lokera::bench {

/// The engine by its own C calls: the floor of everything that goes through the store. Opened with the same
/// settings and the same collation; a failure ends the program.
class Nudo {
 public:
  explicit Nudo(const QString& file);
  ~Nudo();
  Nudo(const Nudo&) = delete;
  Nudo& operator=(const Nudo&) = delete;

  void esegui(const char* sql);
  sqlite3* db() const { return db_; }

 private:
  sqlite3* db_ = nullptr;
};

/// One prepared statement of it.
class Istruzione {
 public:
  Istruzione(Nudo& nudo, const char* sql);
  ~Istruzione() { sqlite3_finalize(stmt_); }
  Istruzione(const Istruzione&) = delete;
  Istruzione& operator=(const Istruzione&) = delete;

  /// Positions are counted from 1. The text must live until the statement is reset.
  Istruzione& lega(int posizione, QByteArrayView testo);
  Istruzione& lega(int posizione, qlonglong numero);

  bool passo();  ///< whether there is a row
  QByteArrayView testo(int colonna) const;
  qlonglong numero(int colonna) const { return sqlite3_column_int64(stmt_, colonna); }
  int colonne() const { return sqlite3_column_count(stmt_); }
  void azzera() { sqlite3_reset(stmt_); }

  /// Runs to the end, takes the text of every cell, and resets. Returns the bytes of all texts.
  qsizetype leggi_tutto();

 private:
  sqlite3_stmt* stmt_ = nullptr;
};

}  // namespace lokera::bench
