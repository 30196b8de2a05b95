#pragma once

#include "simulation/comune/rete.h"
#include "simulation/macchina/virtual_filo.h"

namespace lokera::simulazione {

/// The cabinet's end of a connection. It closes when the cabinet lets go of it.
class VirtualCanale : public Canale, public CapoFilo, public std::enable_shared_from_this<VirtualCanale> {
 public:
  explicit VirtualCanale(std::shared_ptr<VirtualFilo> filo) : filo_(std::move(filo)) {
    filo_->attacca(Estremo::cabinet, this);
  }
  ~VirtualCanale() override { filo_->stacca(Estremo::cabinet); }
  Q_DISABLE_COPY_MOVE(VirtualCanale)

  void invia(QByteArrayView dati) override {
    if (aperto()) filo_->manda(Estremo::cabinet, dati.toByteArray());
  }
  void chiudi() override { filo_->stacca(Estremo::cabinet); }
  bool aperto() const override { return filo_->attaccato(Estremo::cabinet); }

  // The cabinet may let go of its end inside its own handlers: both keep it until they return.
  void arriva(const QByteArray& dati) override {
    const auto vivo = shared_from_this();
    if (const auto arrivo = Arrivo) arrivo(dati);
  }
  void caduta() override {
    const auto vivo = shared_from_this();
    if (const auto caduta = Caduta) caduta();
  }

 private:
  std::shared_ptr<VirtualFilo> filo_;
};

}  // namespace lokera::simulazione
