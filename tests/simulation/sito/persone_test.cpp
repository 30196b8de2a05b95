#include "simulation/sito/persone.h"

#include <gtest/gtest.h>

#include "simulation/cabinet/finta_rete.h"
#include "simulation/macchina/virtual_machine.h"

namespace lokera::simulazione {
namespace {

using namespace std::chrono_literals;

// That a seed gives one day holds for the whole of a site (Giornata).
TEST(PersoneTest, MostlyAllowedAndKeysComeBack) {
  VirtualMachine macchina;
  prova::FintaRete rete;
  RegistroEventi registro;
  Cabinet cabinet{{u"127.0.0.2"_s}, macchina.orologio(), registro};
  CabinetServer server{cabinet, rete, macchina.orologio(), macchina.primo().timer};
  int eventi = 0, rifiuti = 0;
  registro.Riga = [&](const QByteArray& riga) {
    eventi += riga.startsWith("evento");
    rifiuti += riga.startsWith("rifiuto");
  };
  for (int i = 0; i < 10; ++i) cabinet.appendi(i, "CHIAVE000" + QByteArray::number(i));
  const QByteArrayList maschere{"FFC0", "C000", "0000"};
  for (int i = 0; i < 3; ++i)
    cabinet.stato().operatori.scrivi(
        i, "TESSERA00" + QByteArray::number(i) + maschere[i].leftJustified(50, '0'));
  server.apri();
  Persone::Abitudini abitudini;
  abitudini.seme = 7;
  Persone persone(server, macchina.orologio(), macchina.primo().timer, abitudini);
  persone.attive(true);
  macchina.esegui_per(24h);
  EXPECT_GT(eventi, 24 * 20 / 2);
  EXPECT_LT(eventi, 24 * 20 * 2);
  EXPECT_GT(rifiuti, 0);
  EXPECT_LT(rifiuti, eventi / 5);
  persone.basta_prelievi();
  macchina.esegui_per(6h);
  EXPECT_EQ(persone.fuori(), 0);
  EXPECT_EQ(cabinet.stato().transazioni.numero(), eventi);
}

}  // namespace
}  // namespace lokera::simulazione
