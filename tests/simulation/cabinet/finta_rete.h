#pragma once

#include <QList>

#include <map>

#include "simulation/comune/rete.h"

namespace lokera::simulazione::prova {

/// A connection of which the test holds the far end.
class FintoCanale : public Canale {
 public:
  void invia(QByteArrayView dati) override {
    if (aperto_) mandati << dati.toByteArray();
  }
  void chiudi() override { aperto_ = false; }
  bool aperto() const override { return aperto_; }

  void ricevi(QByteArrayView dati) { Arrivo(dati); }
  void cade() {
    aperto_ = false;
    Caduta();
  }
  /// What went out since the last call.
  QByteArrayList presi() { return std::exchange(mandati, {}); }

  QByteArrayList mandati;

 private:
  bool aperto_ = true;
};

/// A network without wires: the test dials and hands the pieces over itself.
class FintaRete : public Rete {
 public:
  bool ascolta_tcp(const QString& indirizzo, quint16 porta, Accetta accetta) override {
    return tcp.emplace(std::pair(indirizzo, porta), std::move(accetta)).second;
  }
  bool ascolta_udp(const QString& indirizzo, quint16 porta, Datagramma arrivo) override {
    return udp.emplace(std::pair(indirizzo, porta), std::move(arrivo)).second;
  }
  void smetti(const QString& indirizzo) override {
    std::erase_if(tcp, [&](const auto& p) { return p.first.first == indirizzo; });
    std::erase_if(udp, [&](const auto& p) { return p.first.first == indirizzo; });
  }

  std::shared_ptr<FintoCanale> chiama(const QString& indirizzo, quint16 porta) {
    auto canale = std::make_shared<FintoCanale>();
    tcp.at({indirizzo, porta})(canale);
    return canale;
  }
  QByteArray datagramma(const QString& indirizzo, QByteArrayView dati) {
    QByteArray risposta;
    const Datagramma arrivo = udp.at({indirizzo, 3040});
    arrivo(dati, [&](QByteArrayView r) { risposta = r.toByteArray(); });
    return risposta;
  }

  std::map<std::pair<QString, quint16>, Accetta> tcp;
  std::map<std::pair<QString, quint16>, Datagramma> udp;
};

}  // namespace lokera::simulazione::prova
