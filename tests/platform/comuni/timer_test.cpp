#include <gtest/gtest.h>

#include "platform/comuni/macchina_di_prova.h"

namespace lokera {
namespace {

TEST(Timer, fires_inside_a_wait_of_its_own_handler_and_may_be_destroyed_there) {
  const auto m = crea_macchina_di_prova();
  const Machine pc = m->macchina();
  PolledWait attesa(pc.orologio, pc.ciclo);
  auto timer = pc.timer.crea_timer();
  int scatti = 0;
  timer->Evento = [&, segno = u"alive until the handler returns"_s] {
    if (++scatti == 1) attesa.attendi(5, [&] { return scatti > 1; });
    if (scatti == 3) timer.reset();
    EXPECT_FALSE(segno.isEmpty());
  };
  timer->Enabled(true);  // with interval 0 it never fires
  pc.ciclo.esegui_eventi(pc.orologio.monotono() + std::chrono::milliseconds(30));
  EXPECT_EQ(scatti, 0);
  timer->Interval(5);
  EXPECT_TRUE(attesa.attendi(5, [&] { return !timer; }));
  EXPECT_EQ(scatti, 3);
}

}  // namespace
}  // namespace lokera
