#pragma once

#include "platform/clock.h"
#include "platform/momento.h"

namespace lokera {

class QtClock : public Clock {
 public:
  QDateTime adesso() const override { return come_si_legge(QDateTime::currentDateTime()); }
  Monotonic monotono() const override { return std::chrono::steady_clock::now().time_since_epoch(); }
};

}  // namespace lokera
