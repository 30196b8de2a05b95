// The same road with the real console and a real broadcast. To be run in a network of its own
// (scripts/rete_propria).
#include <QCoreApplication>
#include <QSysInfo>

#include <gtest/gtest.h>

#include "commissioning/strada.h"
#include "e2e/console_vera.h"
#include "simulation/servizio/rete_propria.h"

namespace lokera::prova {
namespace {

using namespace Qt::StringLiterals;

TEST(Strada, DallaScatolaAlLavoroSuUnaReteVera) {
  ASSERT_EQ(simulazione::via_verso_altri(), QString());
  ConsoleVera vera;
  simulazione::RealRete rete(true);
  Strada(vera.console, rete, vera.messaggi, QSysInfo::machineHostName()).percorri();
}

}  // namespace
}  // namespace lokera::prova

int main(int argc, char** argv) {
  const QCoreApplication app(argc, argv);
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
