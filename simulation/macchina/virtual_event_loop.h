#pragma once

#include <functional>
#include <vector>

#include "platform/event_loop.h"
#include "simulation/macchina/virtual_clock.h"

namespace lokera::simulazione {

/// The event loop of virtual time: whatever is due, in the order of time and, at one moment, of asking.
class VirtualEventLoop : public EventLoop {
 public:
  using Evento = std::function<void()>;

  explicit VirtualEventLoop(VirtualClock& orologio) : orologio_(orologio) {}
  ~VirtualEventLoop() override { svuota(); }

  /// Delivers what is due. With nothing due the clock jumps to the next event, or to `scadenza` when that
  /// comes first. Handlers may call this again; what falls due then is delivered there.
  void esegui_eventi(Monotonic scadenza) override;

  /// `evento` runs at the moment given, or at the next chance when that has passed. It can't be taken back:
  /// an event whose reason may go away checks for itself.
  void a(Monotonic quando, Evento evento);
  void fra(Monotonic durata, Evento evento) { a(orologio_.monotono() + durata, std::move(evento)); }

  Monotonic adesso() const { return orologio_.monotono(); }
  quint64 consegnati() const { return consegnati_; }  ///< events delivered since the start

  /// Time stood still while events or empty rounds went on without end. From then on the clock is pushed, so
  /// that waits reach their limits and the run ends; a test should fail on it.
  bool inondato() const { return inondato_; }

  /// Forgets everything that is still to come.
  void svuota();

 private:
  struct Voce {
    Monotonic quando;
    quint64 ordine;
    Evento evento;
  };
  static bool dopo(const Voce& a, const Voce& b);
  bool dovuto(quint64 limite) const;
  Evento prendi();
  void conta_passo();

  VirtualClock& orologio_;
  std::vector<Voce> coda_;  // a heap, the next event in front
  quint64 ordine_ = 0;
  quint64 consegnati_ = 0;
  quint64 fermi_ = 0;  // steps since the clock last moved
  Monotonic fermo_a_{0};
  bool inondato_ = false;
};

}  // namespace lokera::simulazione
