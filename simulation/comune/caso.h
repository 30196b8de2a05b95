#pragma once

#include <QtGlobal>

#include <random>

namespace lokera::simulazione {

/// Chance by a seed. The standard distributions differ from one library to another, so numbers are cut from
/// the generator here: one seed gives one run everywhere.
class Caso {
 public:
  explicit Caso(quint64 seme) : generatore_(seme) {}

  /// 0 <= result < n; 0 when n is 0. Any number of calls with the same n, the same draws.
  quint64 sotto(quint64 n) { return n == 0 ? 0 : generatore_() % n; }

  /// min <= result <= max.
  qint64 fra(qint64 min, qint64 max) {
    return min + static_cast<qint64>(sotto(static_cast<quint64>(max - min) + 1));
  }

  /// True `mille` times in a thousand. A rate of 0 draws nothing, so a fault that is off moves no other.
  bool per_mille(int mille) { return mille > 0 && sotto(1000) < static_cast<quint64>(mille); }

 private:
  std::mt19937_64 generatore_;
};

}  // namespace lokera::simulazione
