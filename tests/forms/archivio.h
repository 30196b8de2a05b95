#pragma once

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include "forms/griglia.h"
#include "forms/traduttore.h"
#include "simulation/virtual_machine.h"
#include "store/database.h"

namespace lokera {

inline void PrintTo(const QString& testo, std::ostream* os) {
  *os << '"' << testo.toStdString() << '"';
}

inline QString errore_di(const Errore& e) {
  return e.descrizione;
}

/// An empty encrypted file of its own, a machine, and what a list needs.
class Archivio : public ::testing::Test {
 protected:
  Archivio() { EXPECT_FALSE(db.connessione_db.crea(file, QStringLiteral("prova"))); }
  void esegui(const QString& sql, const QVariantList& valori = {}) {
    const Errore e = db.connessione_db.Execute(sql, valori);
    EXPECT_FALSE(e) << sql.toStdString() << ": " << e.descrizione.toStdString();
  }
  /// All rows of a query, cells joined by "|", Null as "-".
  QStringList righe(const QString& sql) {
    QStringList tutte;
    Recordset rs;
    EXPECT_FALSE(rs.Open(sql, db.connessione_db)) << sql.toStdString();
    for (; !rs.eof(); (void)rs.MoveNext()) {
      QStringList celle;
      for (int i = 0; i < rs.conta_campi(); ++i)
        celle += rs.nullo(i) ? QStringLiteral("-") : QString::fromUtf8(rs.testo_grezzo(i));
      tutte += celle.join(u'|');
    }
    return tutte;
  }

  QTemporaryDir cartella;
  const QString file = cartella.filePath(QStringLiteral("prova.mdb"));
  Database db;
  Connection& conn = db.connessione_db;
  VirtualMachine macchina;
  VirtualMessageBox& messaggi = macchina.messaggi();
  Traduttore traduttore{db};
  PolledWait attesa{macchina.orologio(), macchina.ciclo()};
  ServiziGriglia servizi{traduttore, messaggi, attesa};
  ElencoFinestre elenco;
};

}  // namespace lokera
