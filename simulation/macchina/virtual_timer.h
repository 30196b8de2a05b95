#pragma once

#include "platform/timer.h"
#include "simulation/macchina/virtual_event_loop.h"

namespace lokera::simulazione {

class VirtualTimers : public TimerFactory {
 public:
  explicit VirtualTimers(VirtualEventLoop& ciclo) : ciclo_(ciclo) {}
  std::unique_ptr<Timer> crea_timer() override;

 private:
  VirtualEventLoop& ciclo_;
};

}  // namespace lokera::simulazione
