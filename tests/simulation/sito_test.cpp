#include "simulation/sito.h"

#include <gtest/gtest.h>

#include "simulation/richieste.h"
#include "simulation/virtual_machine.h"

namespace lokera::simulazione {
namespace {

using namespace Qt::StringLiterals;

TEST(SitoTest, HangsTheKeysOfEachCabinet) {
  Sito sito;
  EXPECT_EQ(leggi_sito("# keys\r\n\nchiave\t1\t0\tCHIAVE0000\r\nchiave\t127.000.000.002\t4\tCHIAVE0004\n"
                       "chiave\t2\t5\tCHIAVE0005\nchiave\t127.0.0.3\t6\tCHIAVE0006\n"
                       "tessera\tTESSERA001\t3\ntessera\tTESSERA002\n",
                       sito),
            QString());
  EXPECT_EQ(sito.tessere, (std::vector<QByteArray>{"TESSERA001", "TESSERA002"}));
  VirtualMachine macchina;
  Registro registro;
  Cabinet primo({u"127.0.0.2"_s}, macchina.orologio(), registro);
  Cabinet secondo({u"127.0.0.3"_s}, macchina.orologio(), registro);
  sito.appendi(primo, 1, true);
  sito.appendi(secondo, 2, false);
  EXPECT_EQ(primo.stato().chiavi.leggi(4), "CHIAVE0004");
  EXPECT_EQ(primo.chiavi().size(), 2U);
  EXPECT_EQ(secondo.stato().chiavi.numero(), 0);
  EXPECT_EQ(secondo.chiavi().at("CHIAVE0006").posizione, 6);
}

TEST(SitoTest, NamesTheLineThatIsWrong) {
  for (const char* riga : {"chiave\t1\t0\tCORTA", "chiave\t1\t0", "porta\t1"}) {
    Sito sito;
    EXPECT_TRUE(leggi_sito(QByteArray("tessera\tTESSERA001\n") + riga, sito).startsWith(u"line 2: ")) << riga;
  }
  for (const char* riga : {"1\t1\tTESSERA001\tCHIAVE0000\tX\tcompleta", "1\t1\tT\t-\tP\tcompleta", "1\t1"}) {
    std::vector<RigaRichiesta> righe;
    EXPECT_TRUE(leggi_richieste(riga, righe).startsWith(u"line 1: ")) << riga;
  }
}

}  // namespace
}  // namespace lokera::simulazione
