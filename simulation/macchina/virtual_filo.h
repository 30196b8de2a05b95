#pragma once

#include <QByteArray>
#include <QString>

#include <array>
#include <memory>

#include "platform/clock.h"

namespace lokera::simulazione {

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

enum class Estremo : size_t { console, cabinet };

/// One TCP connection, or one bound UDP port (then the cabinet's end stays free). What is on its way keeps it
/// alive; an end that has left gets nothing more. Each direction keeps its order.
class VirtualFilo : public std::enable_shared_from_this<VirtualFilo> {
 public:
  VirtualFilo(VirtualNetwork& rete, QString indirizzo, quint16 porta)
      : rete_(rete), indirizzo_(std::move(indirizzo)), porta_(porta) {}

  const QString& indirizzo() const { return indirizzo_; }
  quint16 porta() const { return porta_; }

  void attacca(Estremo lato, CapoFilo* capo) { capo_di(lato) = capo; }
  bool attaccato(Estremo lato) const { return capi_[static_cast<size_t>(lato)] != nullptr; }

  /// This end closes. The other one learns of it after what is still on its way.
  void stacca(Estremo lato);

  /// A send of the end `da`, with the luck that the network gives it.
  void manda(Estremo da, const QByteArray& dati);

  void connesso();
  void arriva(Estremo a, const QByteArray& dati) { consegna(a, indirizzo_, porta_, dati); }
  void arriva_datagramma(const QString& da, quint16 porta, const QByteArray& dati) {
    consegna(Estremo::console, da, porta, dati);
  }
  void caduta(Estremo a);

 private:
  CapoFilo*& capo_di(Estremo lato) { return capi_[static_cast<size_t>(lato)]; }
  void consegna(Estremo a, const QString& indirizzo, quint16 porta, const QByteArray& dati);
  Monotonic prossimo_arrivo(Estremo a, Monotonic ritardo);
  void posta(Estremo a, Monotonic ritardo, const QByteArray& dati);
  void posta_caduta(Estremo a);
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

}  // namespace lokera::simulazione
