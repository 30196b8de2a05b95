#include <gtest/gtest.h>

#include "platform/comuni/macchina_di_prova.h"

namespace lokera {
namespace {

struct Lettore {
  Lettore() {
    porta->CommPort(1);
    porta->OnComm = [this] {
      ++annunci;
      while (porta->InBufferCount() > 0) letti += porta->Input();
    };
  }
  bool arrivati(qsizetype quanti) {
    return attesa.attendi(5, [&] { return letti.size() >= quanti; });
  }

  std::unique_ptr<MacchinaDiProva> m = crea_macchina_di_prova();
  Machine pc = m->macchina();
  PolledWait attesa{pc.orologio, pc.ciclo};
  std::unique_ptr<MSComm> porta = pc.seriali.crea_mscomm();
  QByteArray letti;
  int annunci = 0;
};

TEST(MSComm, a_handler_that_waits_for_more_is_not_entered_again) {
  Lettore l;
  ASSERT_TRUE(l.porta->PortOpen(true));
  int dentro = 0;
  l.porta->OnComm = [&] {
    EXPECT_EQ(++dentro, 1);
    if (++l.annunci == 1) {
      l.m->manda("22");
      EXPECT_TRUE(l.attesa.attendi(5, [&] { return l.porta->InBufferCount() >= 3; }));
      l.letti += l.porta->Input();
    }
    if (l.annunci == 2) l.letti += "-" + l.porta->Input() + l.porta->Input();
    --dentro;
  };
  l.m->manda("1");
  EXPECT_TRUE(l.arrivati(4));  // what the first one left was announced after it
  EXPECT_EQ(l.letti, "1-22");
}

TEST(MSComm, a_port_is_held_by_one_and_closing_drops_what_was_not_read) {
  Lettore l;
  ASSERT_TRUE(l.porta->PortOpen(true));
  const auto altra = l.pc.seriali.crea_mscomm();
  for (const int numero : {1, 0, 99}) {
    altra->CommPort(numero);
    EXPECT_FALSE(altra->PortOpen(true)) << numero;
    EXPECT_FALSE(altra->PortOpen());
  }
  l.porta->OnComm = {};
  l.m->manda("old");
  EXPECT_TRUE(l.attesa.attendi(5, [&] { return l.porta->InBufferCount() == 3; }));
  EXPECT_TRUE(l.porta->PortOpen(false));
  EXPECT_EQ(l.porta->InBufferCount(), 0);
  altra->CommPort(1);
  EXPECT_TRUE(altra->PortOpen(true));
  EXPECT_TRUE(altra->PortOpen(true));  // anew
  EXPECT_EQ(altra->InBufferCount(), 0);
}

TEST(MSComm, a_device_that_goes_away_closes_its_port_and_tells_it_once) {
  Lettore l;
  int perduta = 0;
  l.porta->Perduta = [&] {
    EXPECT_FALSE(l.porta->PortOpen());
    ++perduta;
  };
  ASSERT_TRUE(l.porta->PortOpen(true));
  EXPECT_EQ(l.pc.seriali.presenti(), (std::vector{PortaSeriale{1, l.porta->dispositivo()}}));
  EXPECT_TRUE(l.pc.seriali.dispositivi(1).contains(l.porta->dispositivo()));
  l.m->stacca();
  EXPECT_TRUE(l.attesa.attendi(5, [&] { return perduta > 0; }));
  EXPECT_FALSE(l.porta->PortOpen(true));
  l.attesa.cedi();
  EXPECT_EQ(perduta, 1);
  EXPECT_TRUE(l.pc.seriali.presenti().empty());
  EXPECT_TRUE(l.porta->dispositivo().isEmpty());
}

}  // namespace
}  // namespace lokera
