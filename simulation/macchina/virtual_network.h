#pragma once

#include <QHash>

#include <map>
#include <vector>

#include "simulation/comune/rete.h"
#include "simulation/macchina/virtual_event_loop.h"
#include "simulation/macchina/virtual_filo.h"
#include "simulation/macchina/virtual_guasti.h"

namespace lokera::simulazione {

/// The network of virtual time: cabinets listen on it as on real sockets, consoles dial into it. Connections
/// and data take a few milliseconds, and go wrong as often as the faults say, all drawn from one seed.
class VirtualNetwork : public Rete {
 public:
  VirtualNetwork(VirtualEventLoop& ciclo, Caso& caso) : ciclo_(ciclo), caso_(caso) {}

  bool ascolta_tcp(const QString& indirizzo, quint16 porta, Accetta accetta,
                   Proprietario di = nullptr) override;
  bool ascolta_udp(const QString& indirizzo, quint16 porta, Datagramma arrivo,
                   Proprietario di = nullptr) override;
  bool ascolta_tutti(const QString& indirizzo, quint16 porta, Datagramma arrivo,
                     Proprietario di = nullptr) override;
  void smetti(const QString& indirizzo, Proprietario di = nullptr) override;

  void guasti(const Guasti& di_tutti) { guasti_ = di_tutti; }
  void guasti_di(const QString& indirizzo, const Guasti& suoi) { guasti_di_.insert(indirizzo, suoi); }
  void guasti_accesi(bool accesi) { accesi_ = accesi; }  ///< off: nothing goes wrong; on at start
  /// Range of the time that a connection or one arrival takes.
  void latenza(Monotonic min, Monotonic max) { latenza_min_ = min, latenza_max_ = max; }

  /// A line for everything that arrives anywhere: microseconds, direction ('>' to the cabinet, '<' to the
  /// console, 'x' an end learns that the other is gone, '+' connected, '-' refused, '?' never answered),
  /// cabinet's address and port, content with other than plain characters as %xx.
  std::function<void(const QString& riga)> traccia;

  // For the two ends of a wire.
  VirtualEventLoop& ciclo() { return ciclo_; }
  Monotonic latenza();
  Sorte sorte(Estremo da, const QString& indirizzo, const QByteArray& dati);
  void connetti(const std::shared_ptr<VirtualFilo>& filo);
  void manda_datagramma(const std::shared_ptr<VirtualFilo>& mittente, const QString& indirizzo, quint16 porta,
                        const QByteArray& dati);
  void annota(QChar verso, const QString& indirizzo, quint16 porta, const QByteArray& dati) const;

 private:
  using Porta = std::pair<QString, quint16>;
  struct Ascolto {
    Accetta accetta;
    Proprietario di;
  };
  struct Presa {
    Datagramma arrivo;
    Proprietario di;
    bool solo_a_tutti;
  };
  struct Filo {
    std::weak_ptr<VirtualFilo> filo;
    Proprietario di;
  };
  /// One of those who listen at a port.
  struct Destino {
    Porta porta;
    Proprietario di;
  };
  const Guasti& guasti_per(const QString& indirizzo) const;
  bool ospita(const QString& indirizzo) const;
  void risposta_al_connect(const std::shared_ptr<VirtualFilo>& filo);
  void accetta(const std::shared_ptr<VirtualFilo>& filo);
  void posta_datagramma(const std::shared_ptr<VirtualFilo>& mittente, const Destino& a,
                        const QByteArray& dati);
  void arriva_datagramma(const std::shared_ptr<VirtualFilo>& mittente, const Destino& a,
                         const QByteArray& dati);
  void rispondi(const std::weak_ptr<VirtualFilo>& mittente, const Porta& da, const QByteArray& dati);

  VirtualEventLoop& ciclo_;
  Caso& caso_;
  std::map<Porta, Ascolto> tcp_;
  std::multimap<Porta, Presa> udp_;  // ordered, so that a broadcast goes round in one order
  std::vector<Filo> fili_;           // accepted
  Guasti guasti_;
  QHash<QString, Guasti> guasti_di_;
  bool accesi_ = true;
  Monotonic latenza_min_ = std::chrono::milliseconds(1);
  Monotonic latenza_max_ = std::chrono::milliseconds(5);
};

}  // namespace lokera::simulazione
