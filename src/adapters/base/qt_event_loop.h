#pragma once

#include <QObject>

#include "platform/event_loop.h"

namespace lokera {

/// Runs the application's event loop by turns. The turn that would block must know whether the one before it
/// delivered anything, posted events included (the dispatcher doesn't count those), so it looks at every
/// event that goes by.
///
/// An object that an outer frame gave to deleteLater() stays alive during a wait; one that a handler inside
/// the wait gave to it doesn't, so whoever waits holds a QPointer to what isn't its own.
class QtEventLoop : public QObject, public EventLoop {
 public:
  /// The application must exist. `orologio` is the one that the deadlines are read on.
  explicit QtEventLoop(const Clock& orologio);

  void esegui_eventi(Monotonic scadenza) override;

 protected:
  bool eventFilter(QObject* oggetto, QEvent* evento) override;

 private:
  const Clock& orologio_;
  quint64 passati_ = 0;
};

}  // namespace lokera
