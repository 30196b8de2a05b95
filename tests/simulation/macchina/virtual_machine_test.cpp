#include "simulation/macchina/virtual_machine.h"

#include <gtest/gtest.h>

#include "platform/polled_wait.h"

namespace lokera::simulazione {
namespace {

using namespace std::chrono_literals;

TEST(VirtualMachine, never_passes_the_deadline_and_keeps_the_order_of_asking) {
  VirtualMachine pc;
  QString ordine;
  pc.ciclo().fra(2s, [&] { ordine += u'c'; });
  pc.ciclo().fra(1s, [&] {
    ordine += u'a';
    pc.ciclo().fra(0s, [&] { ordine += u'x'; });
  });
  pc.ciclo().fra(1s, [&] { ordine += u'b'; });
  pc.esegui_per(1500ms);
  EXPECT_EQ(ordine, u"abx"_s);
  EXPECT_EQ(pc.orologio().monotono(), 1500ms);
  EXPECT_FALSE(pc.esegui_finche([&] { return ordine.contains(u'c'); }, 499ms));
  EXPECT_TRUE(pc.esegui_finche([&] { return ordine.contains(u'c'); }, 1ms));
}

TEST(VirtualTimer, fires_every_interval_while_enabled_and_starts_anew_on_a_change) {
  VirtualMachine pc;
  QList<Monotonic> scatti;
  const auto timer = pc.macchina().timer.crea_timer();
  timer->Evento = [&] { scatti.append(pc.orologio().monotono()); };
  const auto imposta = [&](bool acceso, int ms, Monotonic poi) {
    timer->Enabled(acceso);
    timer->Interval(ms);
    pc.esegui_per(poi);
  };
  imposta(false, 1000, 3s);
  imposta(true, 1000, 2500ms);
  imposta(true, 700, 1s);
  imposta(false, 700, 5s);
  imposta(true, 0, 5s);
  EXPECT_EQ(scatti, (QList<Monotonic>{4000ms, 5000ms, 6200ms}));
}

TEST(VirtualMachine, a_loop_that_makes_no_progress_is_flagged_and_still_ends) {
  VirtualMachine pc;
  std::function<void()> ancora = [&] { pc.ciclo().fra(0s, ancora); };
  ancora();
  pc.esegui_per(1s);
  EXPECT_TRUE(pc.ciclo().inondato());

  VirtualMachine fermo;
  PolledWait attesa(fermo.orologio(), fermo.ciclo());
  while (fermo.orologio().monotono() < 1s) attesa.cedi();
  EXPECT_TRUE(fermo.ciclo().inondato());
}

}  // namespace
}  // namespace lokera::simulazione
