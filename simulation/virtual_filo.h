#pragma once

#include <QByteArray>
#include <QString>

#include <array>
#include <memory>

#include "platform/clock.h"

namespace lokera {

class VirtualNetwork;
struct Sorte;

/// What hangs on one end of a wire.
class CapoFilo {
 public:
  virtual ~CapoFilo() = default;
  virtual void connesso() {}
  virtual void arriva(const QByteArray& dati) = 0;
  virtual void caduta() = 0;  ///< the other side is gone; this end is off the wire already
};

enum class Lato : size_t { console, cabinet };

/// One TCP connection, or one bound UDP port (then the cabinet's end stays free). What is on its way keeps it
/// alive; an end that has left gets nothing more. Each direction keeps its order.
class VirtualFilo : public std::enable_shared_from_this<VirtualFilo> {
 public:
  VirtualFilo(VirtualNetwork& rete, QString indirizzo, quint16 porta)
      : rete_(rete), indirizzo_(std::move(indirizzo)), porta_(porta) {}

  const QString& indirizzo() const { return indirizzo_; }
  quint16 porta() const { return porta_; }

  void attacca(Lato lato, CapoFilo* capo) { capo_di(lato) = capo; }
  bool attaccato(Lato lato) const { return capi_[static_cast<size_t>(lato)] != nullptr; }

  /// This end closes. The other one learns of it after what is still on its way.
  void stacca(Lato lato);

  /// A send of the end `da`, with the luck that the network gives it.
  void manda(Lato da, const QByteArray& dati);

  void connesso();
  void arriva(Lato a, const QByteArray& dati) { consegna(a, indirizzo_, porta_, dati); }
  void arriva_datagramma(const QString& da, quint16 porta, const QByteArray& dati) {
    consegna(Lato::console, da, porta, dati);
  }
  void caduta(Lato a);

 private:
  CapoFilo*& capo_di(Lato lato) { return capi_[static_cast<size_t>(lato)]; }
  void consegna(Lato a, const QString& indirizzo, quint16 porta, const QByteArray& dati);
  Monotonic prossimo_arrivo(Lato a, Monotonic ritardo);
  void posta(Lato a, Monotonic ritardo, const QByteArray& dati);
  void posta_caduta(Lato a);
  void trattieni(const Sorte& sorte);
  void rilascia();

  VirtualNetwork& rete_;
  QString indirizzo_;
  quint16 porta_;
  std::array<CapoFilo*, 2> capi_{};
  std::array<Monotonic, 2> ultimo_arrivo_{};
  QByteArray trattenuto_;  // an answer that waits for the next one
  bool rotto_ = false;
};

}  // namespace lokera
