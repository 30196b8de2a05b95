#include "platform/polled_wait.h"

#include <gtest/gtest.h>

#include "simulation/macchina/virtual_machine.h"

namespace lokera {
namespace {

using namespace simulazione;
using namespace std::chrono_literals;

// Printed by number: a Monotonic has no other text.
double secondi(Monotonic durata) {
  return std::chrono::duration<double>(durata).count();
}

TEST(PolledWait, ends_with_the_tick_of_the_second_after_its_limit) {
  const struct {
    QTime inizio;
    int limite;
    Monotonic atteso;
  } casi[] = {
      {QTime(8, 0, 0, 0), 2, 3000ms},      {QTime(8, 0, 0, 1), 2, 2999ms},  {QTime(8, 0, 0, 500), 2, 2500ms},
      {QTime(8, 0, 0, 999), 2, 2001ms},    {QTime(8, 0, 0, 250), 0, 750ms}, {QTime(8, 0, 0, 999), 0, 1ms},
      {QTime(23, 59, 59, 900), 5, 5100ms},  // over midnight
      {QTime(23, 59, 58, 0), 10, 11000ms},
  };
  for (const auto& caso : casi) {
    VirtualMachine pc(1, momento(QDate(2008, 11, 30), caso.inizio));
    PolledWait attesa(pc.orologio(), pc.ciclo());
    EXPECT_FALSE(attesa.attendi(caso.limite, [] { return false; }));
    EXPECT_EQ(secondi(pc.orologio().monotono()), secondi(caso.atteso))
        << qPrintable(caso.inizio.toString(u"hh:mm:ss.zzz")) << ", limit " << caso.limite;
    EXPECT_EQ(pc.orologio().adesso().time().msec(), 0);
  }
}

TEST(PolledWait, is_not_moved_by_a_changed_clock) {
  for (const qint64 salto : {-86'400LL * 400, -3600LL, -3LL, 3LL, 86'400LL}) {
    VirtualMachine pc;
    PolledWait attesa(pc.orologio(), pc.ciclo());
    pc.ciclo().fra(700ms, [&] { pc.orologio().imposta(pc.orologio().adesso().addSecs(salto)); });
    attesa.attendi_oltre(5);
    EXPECT_EQ(secondi(pc.orologio().monotono()), 6.0) << "clock moved by " << salto << " s";
  }
}

TEST(PolledWait, ends_as_soon_as_its_slot_is_filled_and_asks_before_it_waits) {
  VirtualMachine pc;
  PolledWait attesa(pc.orologio(), pc.ciclo());
  bool pieno = false;
  pc.ciclo().fra(1234ms, [&] { pieno = true; });
  EXPECT_TRUE(attesa.attendi(5, [&] { return pieno; }));
  EXPECT_EQ(secondi(pc.orologio().monotono()), 1.234);
  EXPECT_TRUE(attesa.attendi(0, [&] { return pieno; }));
  attesa.cedi();
  EXPECT_EQ(secondi(pc.orologio().monotono()), 1.234);
}

TEST(PolledWait, outlasts_its_limit_only_by_the_wait_of_a_handler_inside) {
  VirtualMachine pc;
  PolledWait attesa(pc.orologio(), pc.ciclo());
  pc.ciclo().fra(2s, [&] { attesa.attendi_oltre(9); });
  EXPECT_FALSE(attesa.attendi(3, [] { return false; }));
  EXPECT_EQ(secondi(pc.orologio().monotono()), 12.0);
}

}  // namespace
}  // namespace lokera
