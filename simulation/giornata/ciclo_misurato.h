#pragma once

#include <algorithm>
#include <functional>

#include "platform/event_loop.h"

namespace lokera::simulazione {

/// The event loop of a console with a measure in front: how long its waits last, how deep they stand in one
/// another, and what holds when the console lets others run.
class CicloMisurato : public EventLoop {
 public:
  CicloMisurato(EventLoop& ciclo, const Clock& clock) : ciclo_(ciclo), clock_(clock) {}

  void esegui_eventi(Monotonic scadenza) override {
    const Monotonic prima = clock_.monotono();
    if (prima > scadenza) ++oltre_;  // the wait is over and goes on
    massima_ = std::max(massima_, scadenza - prima);
    profonda_ = std::max(profonda_, ++profondita_);
    if (Cede) Cede();
    const Monotonic dentro_prima = std::exchange(dentro_, Monotonic(0));
    ciclo_.esegui_eventi(scadenza);
    const Monotonic durata = clock_.monotono() - prima;
    // What passed in waits that handlers made is theirs.
    if (prima + durata - dentro_ > std::max(prima, scadenza)) ++oltre_;
    dentro_ = dentro_prima + durata;
    --profondita_;
  }

  std::function<void()> Cede;           ///< the console hands over
  int oltre() const { return oltre_; }  ///< waits that went on past their limit
  Monotonic massima() const { return massima_; }
  int profonda() const { return profonda_; }

 private:
  EventLoop& ciclo_;
  const Clock& clock_;
  Monotonic dentro_{0};
  Monotonic massima_{0};
  int profondita_ = 0;
  int profonda_ = 0;
  int oltre_ = 0;
};

}  // namespace lokera::simulazione
