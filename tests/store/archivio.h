#pragma once

#include <QTemporaryDir>

#include "aiuti/righe.h"
#include "store/schema_base.h"

namespace lokera::prova {

inline QString testo(const char* utf8) {
  return QString::fromUtf8(utf8);
}

inline void bene(const Errore& e) {
  EXPECT_FALSE(e.fallito()) << e.descrizione.toStdString();
}

/// A place for a file in a folder of its own.
class ConCartella : public ::testing::Test {
 protected:
  QString file() const { return cartella.filePath(nome_file_database()); }
  /// The message of a refusal; empty for none.
  QString esegui(const char* sql, const QVariantList& valori = {}) {
    return c().Execute(testo(sql), valori).descrizione;
  }
  void fai(const char* sql, const QVariantList& valori = {}) { prova::esegui(c(), testo(sql), valori); }
  void apri(Recordset& rs, const char* sql, Cursore cursore = Cursore::aggiornabile) {
    bene(rs.Open(testo(sql), c(), {}, cursore));
  }
  QStringList leggi(const char* sql, const QVariantList& valori = {}) {
    return righe(c(), testo(sql), valori);
  }
  Connection& c() { return db.connessione_db; }

  QTemporaryDir cartella;
  Database db;
};

/// A delivered file, open.
class Archivio : public ConCartella {
 protected:
  Archivio() {
    bene(crea_database(file()));
    bene(apri_database(db, cartella.path()));
  }
};

}  // namespace lokera::prova
