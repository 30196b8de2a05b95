#pragma once

#include "platform/timer.h"
#include "simulation/virtual_event_loop.h"

namespace lokera {

class VirtualTimers : public TimerFactory {
 public:
  explicit VirtualTimers(VirtualEventLoop& ciclo) : ciclo_(ciclo) {}
  std::unique_ptr<Timer> crea_timer() override;

 private:
  VirtualEventLoop& ciclo_;
};

}  // namespace lokera
