#pragma once

#include <QStringList>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include "store/recordset.h"
#include "store/schema_base.h"

/// For the messages of failed comparisons.
inline void PrintTo(const QString& s, std::ostream* os) {
  *os << s.toStdString();
}

namespace lokera::prova {

inline QString testo(const char* utf8) {
  return QString::fromUtf8(utf8);
}

/// The rows of a query, cells parted by "|", Null as "\N".
inline QStringList righe(Connection& c, const QString& sql, const QVariantList& valori = {}) {
  Recordset rs;
  const Errore e = rs.Open(sql, c, valori);
  if (e) return {QStringLiteral("ERRORE: ") + e.descrizione};
  QStringList tutte;
  while (!rs.eof()) {
    QStringList celle;
    for (int i = 0; i < rs.conta_campi(); ++i) {
      celle += rs.nullo(i) ? QStringLiteral("\\N") : QString::fromUtf8(rs.testo_grezzo(i));
    }
    tutte += celle.join(u'|');
    if (rs.MoveNext()) break;
  }
  return tutte;
}

/// A delivered file in a folder of its own, open.
class Archivio : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_FALSE(crea_database(file()));
    ASSERT_FALSE(apri_database(db, cartella.path()));
  }
  QString file() const { return cartella.filePath(nome_file_database()); }
  QString esegui(const char* sql, const QVariantList& valori = {}) {
    return db.connessione_db.Execute(testo(sql), valori).descrizione;
  }
  QStringList leggi(const char* sql, const QVariantList& valori = {}) {
    return righe(db.connessione_db, testo(sql), valori);
  }
  Connection& c() { return db.connessione_db; }

  QTemporaryDir cartella;
  Database db;
};

}  // namespace lokera::prova
