// The same road with the real console and a real broadcast. To be run in a network of its own
// (scripts/rete_propria).
#include <QCoreApplication>
#include <QSysInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include "adapters/real_machine.h"
#include "commissioning/strada.h"
#include "simulation/servizio/real_rete.h"
#include "simulation/servizio/rete_propria.h"
#include "store/schema_base.h"

namespace lokera::prova {
namespace {

using namespace Qt::StringLiterals;

TEST(Strada, DallaScatolaAlLavoroSuUnaReteVera) {
  ASSERT_EQ(simulazione::via_verso_altri(), QString());
  const QTemporaryDir cartella;
  ASSERT_FALSE(crea_database(cartella.filePath(nome_file_database())).fallito());
  RealMachine computer;
  const Machine m = computer.macchina();
  simulazione::VirtualMessageBox messaggi;
  Console console({m.orologio, m.ciclo, m.timer, m.socket, m.seriali, messaggi, m.domande, m.file,
                   m.stampante, m.fogli, m.puntatore, m.desktop, m.programma});
  ASSERT_TRUE(console.apri(cartella.path()));
  simulazione::RealRete rete(true);
  Strada(console, rete, messaggi, QSysInfo::machineHostName()).percorri();
}

}  // namespace
}  // namespace lokera::prova

int main(int argc, char** argv) {
  const QCoreApplication app(argc, argv);
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
