#include "adapters/base/qt_event_loop.h"

#include <QCoreApplication>
#include <QTimer>

namespace lokera {

QtEventLoop::QtEventLoop(const Clock& orologio) : orologio_(orologio) {
  QCoreApplication::instance()->installEventFilter(this);
}

bool QtEventLoop::eventFilter(QObject*, QEvent*) {
  ++passati_;
  return false;
}

void QtEventLoop::esegui_eventi(Monotonic scadenza) {
  const Monotonic resta = scadenza - orologio_.monotono();
  if (resta <= Monotonic(0)) return QCoreApplication::processEvents(QEventLoop::AllEvents);
  const quint64 prima = passati_;
  QCoreApplication::sendPostedEvents();
  if (passati_ != prima) return;  // the caller looks first whether that was what it waits for
  QTimer
      sveglia;  // each call its own: a wait inside a handler must not move the deadline of the one around it
  sveglia.setTimerType(Qt::PreciseTimer);
  sveglia.start(
      std::chrono::ceil<std::chrono::milliseconds>(std::min<Monotonic>(resta, std::chrono::hours(1))));
  QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

}  // namespace lokera
