#pragma once

#include <QTimer>

#include "platform/clock.h"
#include "platform/momento.h"
#include "platform/timer.h"

namespace lokera::simulazione {

class OrologioReale : public Clock {
 public:
  QDateTime adesso() const override { return come_si_legge(QDateTime::currentDateTime()); }
  Monotonic monotono() const override { return std::chrono::steady_clock::now().time_since_epoch(); }
};

class TimerReale : public Timer {
 public:
  TimerReale() {
    timer_.setTimerType(Qt::PreciseTimer);
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] {
      if (const auto evento = Evento) evento();
    });
  }
  void Interval(int ms) override {
    intervallo_ = ms;
    Enabled(acceso_);
  }
  int Interval() const override { return intervallo_; }
  void Enabled(bool acceso) override {
    acceso_ = acceso;
    if (acceso && intervallo_ > 0) {
      timer_.start(intervallo_);
    } else {
      timer_.stop();
    }
  }
  bool Enabled() const override { return acceso_; }

 private:
  QTimer timer_;
  int intervallo_ = 0;
  bool acceso_ = false;
};

class TimerReali : public TimerFactory {
 public:
  std::unique_ptr<Timer> crea_timer() override { return std::make_unique<TimerReale>(); }
};

}  // namespace lokera::simulazione
