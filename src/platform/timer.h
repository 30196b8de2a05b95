#pragma once

#include <functional>
#include <memory>

namespace lokera {

/// A repeating timer. It fires every `Interval` ms for as long as it is enabled; enabling it, or a new
/// interval while it is enabled, starts the period anew. A period that passed while the loop was busy fires
/// once. Destroying a timer stops it, also from inside its own handler.
class Timer {
 public:
  virtual ~Timer() = default;
  virtual void Interval(int ms) = 0;
  virtual int Interval() const = 0;
  virtual void Enabled(bool acceso) = 0;
  virtual bool Enabled() const = 0;

  /// Called from the event loop; may run it again.
  std::function<void()> Evento;
};

class TimerFactory {
 public:
  virtual ~TimerFactory() = default;
  /// A new timer, disabled, interval 0 (which never fires).
  virtual std::unique_ptr<Timer> crea_timer() = 0;
};

}  // namespace lokera
