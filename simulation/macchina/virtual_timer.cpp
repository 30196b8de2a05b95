#include "simulation/macchina/virtual_timer.h"

namespace lokera::simulazione {

namespace {

class VirtualTimer : public Timer {
 public:
  explicit VirtualTimer(VirtualEventLoop& ciclo) : ciclo_(ciclo) {}

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
  // One period under way at a time: a new token makes the event of the old one void.
  void arma() {
    periodo_.reset();
    if (!acceso_ || intervallo_ <= 0) return;
    periodo_ = std::make_shared<char>();
    ciclo_.fra(std::chrono::milliseconds(intervallo_), [this, vivo = std::weak_ptr(periodo_)] {
      if (!vivo.expired()) scatta();
    });
  }

  void scatta() {
    arma();  // first: the handler may run for longer than a period, and may destroy this timer
    if (const auto evento = Evento) evento();
  }

  VirtualEventLoop& ciclo_;
  std::shared_ptr<char> periodo_;
  int intervallo_ = 0;
  bool acceso_ = false;
};

}  // namespace

std::unique_ptr<Timer> VirtualTimers::crea_timer() {
  return std::make_unique<VirtualTimer>(ciclo_);
}

}  // namespace lokera::simulazione
