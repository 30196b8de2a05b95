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
  bool ascolta_tcp(const QString& indirizzo, quint16 porta, Accetta accetta, Proprietario suo = {}) override {
    di.try_emplace({indirizzo, porta}, suo);
    return tcp.emplace(std::pair(indirizzo, porta), std::move(accetta)).second;
  }
  bool ascolta_udp(const QString& indirizzo, quint16 porta, Datagramma arrivo, Proprietario suo) override {
    di.try_emplace({indirizzo, porta}, suo);
    return udp.emplace(std::pair(indirizzo, porta), std::move(arrivo)).second;
  }
  bool ascolta_tutti(const QString&, quint16, Datagramma, Proprietario) override { return false; }
  void smetti(const QString& indirizzo, Proprietario suo) override {
    std::erase_if(di, [&](const auto& voce) {
      if (voce.first.first != indirizzo || voce.second != suo) return false;
      return tcp.erase(voce.first) + udp.erase(voce.first) > 0;
    });
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

  std::map<std::pair<QString, quint16>, Proprietario> di;
  std::map<std::pair<QString, quint16>, Accetta> tcp;
  std::map<std::pair<QString, quint16>, Datagramma> udp;
};

}  // namespace lokera::simulazione::prova
