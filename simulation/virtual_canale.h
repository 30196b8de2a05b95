#pragma once

#include "simulation/rete.h"
#include "simulation/virtual_filo.h"

namespace lokera {

/// The cabinet's end of a connection. It closes when the cabinet lets go of it.
class VirtualCanale : public Canale, public CapoFilo, public std::enable_shared_from_this<VirtualCanale> {
 public:
  explicit VirtualCanale(std::shared_ptr<VirtualFilo> filo) : filo_(std::move(filo)) {
    filo_->attacca(Lato::cabinet, this);
  }
  ~VirtualCanale() override { filo_->stacca(Lato::cabinet); }
  Q_DISABLE_COPY_MOVE(VirtualCanale)

  void invia(QByteArrayView dati) override {
    if (aperto()) filo_->manda(Lato::cabinet, dati.toByteArray());
  }
  void chiudi() override { filo_->stacca(Lato::cabinet); }
  bool aperto() const override { return filo_->attaccato(Lato::cabinet); }

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

}  // namespace lokera
