#include <QEventLoop>
#include <QPointer>
#include <QTimer>

#include <gtest/gtest.h>

#include "adapters/banco_reale.h"

namespace lokera {
namespace {

using namespace std::chrono_literals;

struct Tempo : BancoReale {
  Tempo() : BancoReale({}) {}
  Monotonic inizio = pc.orologio.monotono();
  Monotonic passato() const { return pc.orologio.monotono() - inizio; }
};

TEST(QtEventLoop, sees_what_a_posted_event_did_and_does_not_block_after_it) {
  Tempo t;
  bool pieno = false;
  QObject altro;
  QMetaObject::invokeMethod(
      &altro, [&] { pieno = true; }, Qt::QueuedConnection);
  EXPECT_TRUE(t.attesa.attendi(30, [&] { return pieno; }));
  EXPECT_LT(t.passato(), 5s);
}

TEST(QtEventLoop, blocks_to_the_deadline_without_turning_round) {
  Tempo t;
  int giri = 0;
  const Monotonic scadenza = t.inizio + 300ms;
  for (; t.pc.orologio.monotono() < scadenza; ++giri) t.pc.ciclo.esegui_eventi(scadenza);
  EXPECT_GE(t.passato(), 300ms);
  EXPECT_LT(t.passato(), 2s);
  EXPECT_LT(giri, 20);
}

TEST(QtEventLoop, what_an_outer_frame_gave_up_lives_until_its_wait_is_over) {
  Tempo t;
  QPointer<QObject> ceduto = new QObject;
  int giri = 0;
  bool vivo_dopo = false;
  QEventLoop esterno;
  QTimer::singleShot(0, &esterno, [&] {
    ceduto->deleteLater();
    t.attesa.attendi(0, [&] { return ++giri < 0; });
    vivo_dopo = !ceduto.isNull();
    QTimer::singleShot(0, &esterno, [&] { esterno.quit(); });
  });
  esterno.exec();
  EXPECT_TRUE(vivo_dopo);
  EXPECT_TRUE(ceduto.isNull());
  EXPECT_LT(giri, 20);  // and what can't be deleted yet doesn't keep the loop turning
}

}  // namespace
}  // namespace lokera
