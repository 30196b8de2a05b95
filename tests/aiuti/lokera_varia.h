#pragma once

#include <map>
#include <memory>

#include "link/protocollo.h"
#include "simulation/macchina/virtual_machine.h"

namespace lokera::prova {

using namespace simulazione;

/// A cabinet of another maker: it answers at its own speed, and what has become ready together leaves in one
/// segment or torn to pieces. It keeps what it is told and drops a stored record only at its acknowledgement.
class LokeraVaria {
 public:
  enum class Modo { unite, byte_a_byte, spezzate };

  LokeraVaria(VirtualMachine& vm, const QString& indirizzo, Monotonic ritardo, Modo modo)
      : vm_(vm), ritardo_(ritardo), modo_(modo) {
    vm.rete().ascolta_tcp(indirizzo, 10001, [this](std::shared_ptr<Canale> canale) {
      canale_ = std::move(canale);
      arrivato_.clear();
      pronte_.clear();
      in_partenza_ = false;
      canale_->Arrivo = [this](QByteArrayView dati) { arrivo(dati); };
    });
  }

  QList<QByteArray> memoria;                 ///< 34 characters: card, key, movement, moment
  std::map<QByteArray, QByteArray> tessere;  ///< position -> record
  int conteggi = 0;

 private:
  void arrivo(QByteArrayView dati) {
    arrivato_ += dati;
    for (qsizetype fine = arrivato_.indexOf('\r'); fine >= 0; fine = arrivato_.indexOf('\r')) {
      pronte_ += componi_frame(risposta(arrivato_.first(fine - 2)));
      arrivato_.remove(0, fine + 1);
      if (!in_partenza_) fra(ritardo_, [this](Canale& c) { parti(c); });
    }
  }

  QByteArray risposta(const QByteArray& comando) {
    const QByteArray codice = comando.left(5);
    if (codice == "00010") return codice + "00HELLO";
    if (codice == "0001B") return codice + "000000004711";
    if (codice == "00039")
      return ++conteggi, codice + "00" + QByteArray::number(memoria.size()).rightJustified(4, '0');
    if (codice == "00036") return memoria.isEmpty() ? codice + "14" : codice + "00" + memoria.first();
    if (codice == "00037") return memoria.isEmpty() ? codice + "05" : (memoria.removeFirst(), codice + "00");
    const QByteArray posto = comando.mid(5, 5);
    if (codice == "00031") return tessere[posto] = comando.mid(10), codice + "00";
    if (codice == "00030") return tessere.contains(posto) ? codice + "00" + tessere[posto] : codice + "14";
    if (codice == "00032") return codice + (tessere.erase(posto) ? "00" : "14");
    return codice + "04";
  }

  void parti(Canale& canale) {
    const QByteArray tutte = std::exchange(pronte_, {});
    if (modo_ == Modo::unite) return canale.invia(tutte);
    if (modo_ == Modo::byte_a_byte) {
      for (const char c : tutte) canale.invia(QByteArrayView(&c, 1));
      return;
    }
    const qsizetype taglio = ++taglio_ % tutte.size();
    canale.invia(tutte.first(taglio));
    fra(std::chrono::milliseconds(300), [this, resto = tutte.sliced(taglio)](Canale& c) {
      c.invia(resto);
      if (!pronte_.isEmpty()) parti(c);
    });
  }

  // What becomes ready meanwhile goes with the next departure.
  void fra(Monotonic ritardo, std::function<void(Canale&)> parte) {
    in_partenza_ = true;
    vm_.ciclo().fra(ritardo, [this, c = canale_, parte = std::move(parte)] {
      if (c != canale_) return;
      in_partenza_ = false;
      parte(*c);
    });
  }

  VirtualMachine& vm_;
  Monotonic ritardo_;
  Modo modo_;
  std::shared_ptr<Canale> canale_;
  QByteArray arrivato_, pronte_;
  qsizetype taglio_ = 0;
  bool in_partenza_ = false;
};

}  // namespace lokera::prova
