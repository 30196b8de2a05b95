#include "simulation/virtual_machine.h"

#include <gtest/gtest.h>

#include "platform/polled_wait.h"

namespace lokera {
namespace {

using namespace std::chrono_literals;

TEST(VirtualMachine, calendar_goes_along_past_midnight_and_is_set_apart_from_the_waits) {
  VirtualMachine pc(0, QDateTime(QDate(2008, 12, 31), QTime(23, 59, 50)));
  pc.esegui_per(20s);
  EXPECT_EQ(pc.orologio().adesso(), QDateTime(QDate(2009, 1, 1), QTime(0, 0, 10)));
  pc.orologio().imposta(QDateTime(QDate(2001, 1, 1), QTime(12, 0)));
  pc.esegui_per(1500ms);
  EXPECT_EQ(pc.orologio().adesso(), QDateTime(QDate(2001, 1, 1), QTime(12, 0, 1, 500)));
  EXPECT_EQ(pc.orologio().monotono(), 21500ms);
}

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
  EXPECT_EQ(ordine, QStringLiteral("abx"));
  EXPECT_EQ(pc.orologio().monotono(), 1500ms);
  EXPECT_FALSE(pc.esegui_finche([&] { return ordine.contains(u'c'); }, 499ms));
  EXPECT_TRUE(pc.esegui_finche([&] { return ordine.contains(u'c'); }, 1ms));
}

struct Scatti {
  explicit Scatti(VirtualMachine& pc, int ms) : pc(pc), timer(pc.macchina().timer.crea_timer()) {
    timer->Interval(ms);
    timer->Evento = [this] { a.append(this->pc.orologio().monotono() / 1ms); };
  }
  VirtualMachine& pc;
  std::unique_ptr<Timer> timer;
  QList<qint64> a;
};

TEST(VirtualTimer, fires_every_interval_while_enabled_and_starts_anew_on_a_change) {
  VirtualMachine pc;
  Scatti scatti(pc, 1000);
  pc.esegui_per(3s);  // not enabled yet
  scatti.timer->Enabled(true);
  pc.esegui_per(2500ms);
  scatti.timer->Interval(700);
  pc.esegui_per(1s);
  scatti.timer->Enabled(false);
  pc.esegui_per(5s);
  scatti.timer->Interval(0);
  scatti.timer->Enabled(true);
  pc.esegui_per(5s);
  EXPECT_EQ(scatti.a, (QList<qint64>{4000, 5000, 6200}));
}

TEST(VirtualTimer, fires_inside_a_wait_of_its_own_handler_and_may_be_destroyed_there) {
  VirtualMachine pc;
  PolledWait attesa(pc.orologio(), pc.ciclo());
  auto timer = pc.macchina().timer.crea_timer();
  int scatti = 0;
  int profondo = 0;
  timer->Evento = [&, segno = QStringLiteral("alive until the handler returns")] {
    if (++scatti == 1) attesa.attendi_oltre(4);
    if (scatti == 3) timer.reset();
    ++profondo;
    EXPECT_FALSE(segno.isEmpty());
  };
  timer->Interval(1500);
  timer->Enabled(true);
  pc.esegui_per(60s);
  EXPECT_EQ(scatti, 3);
  EXPECT_EQ(profondo, 3);
}

TEST(VirtualMachine, a_loop_that_makes_no_progress_is_flagged_and_still_ends) {
  VirtualMachine pc;
  std::function<void()> ancora = [&] { pc.ciclo().fra(0s, ancora); };
  ancora();
  pc.esegui_per(1s);
  EXPECT_TRUE(pc.ciclo().inondato());

  VirtualMachine fermo;
  PolledWait attesa(fermo.orologio(), fermo.ciclo());
  const Monotonic fine = fermo.orologio().monotono() + 1s;
  while (fermo.orologio().monotono() < fine) attesa.cedi();
  EXPECT_TRUE(fermo.ciclo().inondato());
}

TEST(VirtualMessageBox, answers_from_the_queue_then_No_and_lets_things_happen_while_open) {
  VirtualMachine pc;
  MessageBox& box = pc.macchina().messaggi;
  pc.messaggi().risposte = {true, false};
  pc.messaggi().mentre_aperto = [&](const auto&) { pc.esegui_per(1s); };
  EXPECT_TRUE(box.chiedi(QStringLiteral("a")));
  EXPECT_FALSE(box.chiedi(QStringLiteral("b")));
  EXPECT_FALSE(box.chiedi(QStringLiteral("c")));
  box.mostra(QStringLiteral("d"), QStringLiteral("titolo"));
  EXPECT_EQ(pc.messaggi().testi(), (QStringList{u"a"_qs, u"b"_qs, u"c"_qs, u"d"_qs}));
  EXPECT_EQ(pc.orologio().monotono(), 4s);
}

}  // namespace
}  // namespace lokera
