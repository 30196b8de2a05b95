#include "simulation/macchina/virtual_event_loop.h"

#include <QtDebug>

#include <algorithm>

namespace lokera::simulazione {

namespace {
constexpr quint64 passi_fermi = 2'000'000;
}

bool VirtualEventLoop::dopo(const Voce& a, const Voce& b) {
  return a.quando != b.quando ? a.quando > b.quando : a.ordine > b.ordine;
}

void VirtualEventLoop::a(Monotonic quando, Evento evento) {
  coda_.push_back({std::max(quando, adesso()), ordine_++, std::move(evento)});
  std::push_heap(coda_.begin(), coda_.end(), dopo);
}

VirtualEventLoop::Evento VirtualEventLoop::prendi() {
  std::pop_heap(coda_.begin(), coda_.end(), dopo);
  Evento evento = std::move(coda_.back().evento);
  coda_.pop_back();
  return evento;
}

bool VirtualEventLoop::dovuto(quint64 limite) const {
  return !coda_.empty() && coda_.front().quando <= adesso() && coda_.front().ordine < limite;
}

void VirtualEventLoop::conta_passo() {
  if (adesso() != fermo_a_) {
    fermo_a_ = adesso();
    fermi_ = 0;
  }
  if (!inondato_ && ++fermi_ < passi_fermi) return;
  if (!inondato_) qWarning("virtual time: %llu steps without any time passing", fermi_);
  inondato_ = true;
  orologio_.avanza_a(adesso() + std::chrono::milliseconds(1));
}

void VirtualEventLoop::esegui_eventi(Monotonic scadenza) {
  conta_passo();
  const Monotonic prossimo = coda_.empty() ? Monotonic::max() : coda_.front().quando;
  orologio_.avanza_a(std::min(prossimo, scadenza));
  // What the handlers ask for waits for the next call, so a handler that asks for itself can't hold this one.
  const quint64 limite = ordine_;
  while (dovuto(limite)) {
    conta_passo();
    ++consegnati_;
    prendi()();
  }
}

void VirtualEventLoop::svuota() {
  // What an event held may ask for another as it goes.
  while (!coda_.empty()) {
    const auto via = std::exchange(coda_, {});
  }
}

}  // namespace lokera::simulazione
