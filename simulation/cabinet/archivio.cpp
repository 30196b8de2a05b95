#include "simulation/cabinet/archivio.h"

#include <algorithm>

namespace lokera::simulazione {

int Archivio::svuota() {
  const int quanti = numero();
  record_.clear();
  return quanti;
}

QByteArray Archivio::leggi(int posizione) const {
  const auto trovato = record_.find(posizione);
  return trovato == record_.end() ? QByteArray() : trovato->second;
}

std::optional<int> Archivio::posizione_di(QByteArrayView codice) const {
  const auto trovato =
      std::ranges::find_if(record_, [codice](const auto& r) { return r.second.startsWith(codice); });
  if (trovato == record_.end()) return std::nullopt;
  return trovato->first;
}

bool bit_maschera(QByteArrayView maschera, int posizione) {
  if (posizione < 0 || posizione / 4 >= maschera.size()) return false;
  const int cifra = QByteArray(1, maschera[posizione / 4]).toInt(nullptr, 16);
  return (cifra >> (3 - posizione % 4) & 1) != 0;
}

}  // namespace lokera::simulazione
