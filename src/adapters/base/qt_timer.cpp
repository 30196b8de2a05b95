#include "adapters/base/qt_timer.h"

#include <QTimer>

namespace lokera {

namespace {

class QtTimer : public Timer {
 public:
  QtTimer() {
    timer_.setTimerType(Qt::PreciseTimer);
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { scatta(); });
  }

  void Interval(int ms) override {
    intervallo_ = ms;
    arma();
  }
  int Interval() const override { return intervallo_; }
  void Enabled(bool acceso) override {
    acceso_ = acceso;
    arma();
  }
  bool Enabled() const override { return acceso_; }

 private:
  void arma() {
    if (acceso_ && intervallo_ > 0)
      timer_.start(intervallo_);
    else
      timer_.stop();
  }

  void scatta() {
    arma();  // a running timer is not delivered inside its own handler; one started anew is
    if (const auto evento = Evento) evento();
  }

  QTimer timer_;
  int intervallo_ = 0;
  bool acceso_ = false;
};

}  // namespace

std::unique_ptr<Timer> QtTimers::crea_timer() {
  return std::make_unique<QtTimer>();
}

}  // namespace lokera
