#pragma once

#include <QTemporaryDir>

#include "aiuti/righe.h"
#include "forms/griglia.h"
#include "platform/letterali.h"
#include "simulation/macchina/virtual_machine.h"
#include "store/schema_base.h"

namespace lokera::prova {

using namespace simulazione;

/// A delivered database and what a window stands on, without a console.
class BancoFinestre : public ::testing::Test {
 protected:
  BancoFinestre() {
    EXPECT_FALSE(crea_database(cartella.filePath(nome_file_database())).fallito());
    EXPECT_FALSE(apri_database(db, cartella.path()).fallito());
  }
  /// An empty file of the given name instead.
  explicit BancoFinestre(const QString& nome) {
    EXPECT_FALSE(db.connessione_db.crea(cartella.filePath(nome), u"prova"_s).fallito());
  }
  void sql(const QString& statement, const QVariantList& valori = {}) {
    esegui(db.connessione_db, statement, valori);
  }
  QStringList righe(const QString& statement, const QVariantList& valori = {}) {
    return prova::righe(db.connessione_db, statement, valori);
  }

  QTemporaryDir cartella;
  VirtualMachine vm;
  VirtualMessageBox& messaggi = vm.messaggi();
  Database db;
  ElencoFinestre elenco;
  Traduttore traduttore{db};
  PolledWait attesa{vm.orologio(), vm.ciclo()};
  ServiziGriglia griglie{traduttore, messaggi, attesa};
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
  return {u"dell'officina"_s,       u"100% _ [*] ?"_s,   u"è già là: ÀÈÌ"_s,  u"\"Re\" \\ ; --"_s,
          u"🔑 chiavi 🗝️"_s, u"   tre davanti"_s, QString(10000, u'x')};
}

}  // namespace lokera::prova
