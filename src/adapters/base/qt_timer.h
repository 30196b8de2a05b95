#pragma once

#include "platform/timer.h"

namespace lokera {

class QtTimers : public TimerFactory {
 public:
  std::unique_ptr<Timer> crea_timer() override;
};

}  // namespace lokera
