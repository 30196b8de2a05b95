#pragma once

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include "forms/ambiente.h"
#include "simulation/virtual_machine.h"
#include "store/schema_base.h"

namespace lokera::prova {

/// A delivered database and what a window stands on, without a console.
class BancoFinestre : public ::testing::Test {
 protected:
  BancoFinestre() {
    EXPECT_FALSE(crea_database(cartella.filePath(nome_file_database())));
    EXPECT_FALSE(apri_database(db, cartella.path()));
  }
  void sql(const QString& statement, const QVariantList& valori = {}) {
    const Errore e = db.connessione_db.Execute(statement, valori);
    EXPECT_FALSE(e) << statement.toStdString() << ": " << e.descrizione.toStdString();
  }
  /// All rows of a query, cells joined by "|", Null as "-".
  QStringList righe(const QString& statement, const QVariantList& valori = {}) {
    QStringList tutte;
    Recordset rs;
    EXPECT_FALSE(rs.Open(statement, db.connessione_db, valori)) << statement.toStdString();
    for (; !rs.eof(); (void)rs.MoveNext()) {
      QStringList celle;
      for (int i = 0; i < rs.conta_campi(); ++i)
        celle += rs.nullo(i) ? QStringLiteral("-") : QString::fromUtf8(rs.testo_grezzo(i));
      tutte += celle.join(u'|');
    }
    return tutte;
  }

  QTemporaryDir cartella;
  VirtualMachine vm;
  VirtualMessageBox& messaggi = vm.messaggi();
  Database db;
  ElencoFinestre elenco;
  Traduttore traduttore{db};
  PolledWait attesa{vm.orologio(), vm.ciclo()};
  ServiziGriglia griglie{traduttore, messaggi, attesa};
  const Ambiente ambiente{db, elenco, traduttore, messaggi, griglie, vm.desktop(), vm.orologio()};
};

/// Types into the cells one after the other, each left with Return, from the current cell on.
inline void digita(SSOleDBGrid& grd, const QStringList& testi) {
  for (const QString& testo : testi) {
    EXPECT_TRUE(grd.utente_modifica(grd.Row(), grd.Col(), testo)) << testo.toStdString();
    grd.utente_avanti();
  }
}

/// The same in a new row at the end.
inline void digita_riga(SSOleDBGrid& grd, const QStringList& testi) {
  grd.utente_aggiunge_riga();
  grd.Col(0);
  digita(grd, testi);
}

/// Texts that have gone wrong somewhere before.
inline QStringList testi_difficili() {
  return {QStringLiteral("dell'officina"),
          QStringLiteral("100% _ [*] ?"),
          QStringLiteral("è già là: ÀÈÌ"),
          QStringLiteral("\"Re\" \\ ; --"),
          QStringLiteral("🔑 chiavi 🗝️"),
          QStringLiteral("   tre davanti"),
          QString(10000, u'x')};
}

}  // namespace lokera::prova

inline void PrintTo(const QString& testo, std::ostream* os) {
  *os << '"' << testo.toStdString() << '"';
}
