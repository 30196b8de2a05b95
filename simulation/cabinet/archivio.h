#pragma once

#include <QByteArray>

#include <map>
#include <optional>

namespace lokera::simulazione {

constexpr int cifre_maschera = 50;
constexpr int posizioni_maschera = 200;

/// One archive of a cabinet: records at numbered positions from 0. A record is the ten characters of a card
/// code, for an operator followed by the mask as 50 hexadecimal digits.
class Archivio {
 public:
  explicit Archivio(int limite) : limite_(limite) {}

  /// Number of positions; those beyond don't exist in the cabinet.
  int limite() const { return limite_; }
  bool esiste(int posizione) const { return posizione >= 0 && posizione < limite_; }

  void scrivi(int posizione, const QByteArray& record) { record_[posizione] = record; }
  bool togli(int posizione) { return record_.erase(posizione) > 0; }
  int svuota();  ///< returns how many records there were

  /// Empty when there is no record.
  QByteArray leggi(int posizione) const;
  /// The lowest position whose record has this code.
  std::optional<int> posizione_di(QByteArrayView codice) const;
  int numero() const { return static_cast<int>(record_.size()); }
  const std::map<int, QByteArray>& record() const { return record_; }

 private:
  std::map<int, QByteArray> record_;
  int limite_;
};

/// The bit of a key position in a mask of 50 digits; false beyond the mask.
bool bit_maschera(QByteArrayView maschera, int posizione);

}  // namespace lokera::simulazione
