#include "aiuti/banco.h"
#include "aiuti/lokera_varia.h"

namespace lokera::prova {

using namespace Qt::StringLiterals;
namespace {

using Modo = LokeraVaria::Modo;

struct Ritmo {
  const char* nome;
  Modo modo;
  Monotonic latenza;  ///< of the network, at most
};

class Visite : public ::testing::TestWithParam<Ritmo> {};

QByteArray record(int n) {
  const QByteArray movimento = n % 2 ? "01" : "00";
  return "00000000011000000001" + movimento + "301108" +
         QByteArray::number(80000 + n / 60 * 100 + n % 60).rightJustified(6, '0');
}

// Whatever a cabinet's speed and rhythm: at the end of each visit every record is booked once, and every
// queued card confirmed.
TEST_P(Visite, DopoOgniVisitaTuttoEPreso) {
  for (const Monotonic ritardo : {Monotonic(0), Monotonic(300us), Monotonic(1ms), Monotonic(5ms),
                                  Monotonic(20ms), Monotonic(100ms), Monotonic(400ms)}) {
    Banco b;
    b.vm.rete().latenza(Monotonic(0), GetParam().latenza);
    b.lokera(1);
    b.tessera(u"0000000001"_s);
    b.chiave(u"1000000001"_s, 1, 3);
    b.abilita(u"0000000001"_s, 1);
    LokeraVaria lokera(b.vm, u"127.0.0.2"_s, ritardo, GetParam().modo);
    int registrati = 0;
    for (int visita = 0; visita < 30; ++visita) {
      const QString dove = QString::fromLatin1(GetParam().nome) + u", visit "_s + QString::number(visita);
      SCOPED_TRACE(dove.toStdString() + ", delay " + std::to_string(ritardo.count() / 1000) + " us");
      for (int i = 0; i < visita % 3; ++i) lokera.memoria << record(registrati++);
      if (visita % 5 == 2) b.in_coda(u"0000000001"_s, 1);
      visita == 0 ? b.main().Form_Load() : b.parti().ciclo.mnuScarTrans_Click();
      b.vm.esegui_per(12s);
      EXPECT_EQ(lokera.conteggi, visita + 1);
      EXPECT_TRUE(lokera.memoria.isEmpty());
      EXPECT_EQ(b.conta(u"movimenti"_s), registrati);
      EXPECT_EQ(b.uno(u"select count(*) from (select distinct data from movimenti)"_s), registrati);
      EXPECT_EQ(b.conta(u"aggiorn_tessere_oper"_s), 0);
      if (HasFailure()) return;
    }
    EXPECT_EQ(lokera.tessere["00000"].left(12), "000000000110");
  }
}

constexpr Ritmo ritmi[] = {
    {"joined", Modo::unite, 0ms},
    {"joined, slow network", Modo::unite, 5ms},
    {"byte by byte", Modo::byte_a_byte, 0ms},
    {"byte by byte, slow network", Modo::byte_a_byte, 3ms},
    {"torn in two", Modo::spezzate, 0ms},
};

INSTANTIATE_TEST_SUITE_P(, Visite, ::testing::ValuesIn(ritmi));

}  // namespace
}  // namespace lokera::prova
