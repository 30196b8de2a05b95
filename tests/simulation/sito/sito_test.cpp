#include "simulation/sito/sito.h"

#include <gtest/gtest.h>

#include "simulation/sito/richieste.h"

namespace lokera::simulazione {
namespace {

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
