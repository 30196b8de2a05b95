#pragma once

#include <QByteArray>

namespace lokera::simulazione {

/// Puts the pieces of a connection together to frames, each up to its carriage return.
class Ricompositore {
 public:
  /// Calls `frame` for each one completed, carriage return included. What grows beyond any frame without a
  /// carriage return is thrown away.
  template <typename Uso>
  void arriva(QByteArrayView pezzo, Uso frame) {
    resto_.append(pezzo);
    for (qsizetype fine = resto_.indexOf('\r'); fine >= 0; fine = resto_.indexOf('\r')) {
      const QByteArray intero = resto_.first(fine + 1);
      resto_.remove(0, fine + 1);
      frame(intero);
    }
    if (resto_.size() > massimo) resto_.clear();
  }

 private:
  static constexpr qsizetype massimo = 1024;
  QByteArray resto_;
};

}  // namespace lokera::simulazione
