#pragma once

#include <QByteArray>
#include <QList>

#include <chrono>

namespace lokera {

/// Cuts a stream into frames, each up to its carriage return: a connection has no frames of its own, and what
/// was sent in two pieces or as two frames may arrive as one, or byte by byte.
class Ricompositore {
 public:
  /// How long a rest without its carriage return waits for the remainder; its owner keeps the time.
  static constexpr std::chrono::milliseconds attesa_resto{200};

  void arriva(QByteArrayView pezzo);

  bool pronto() const { return !pronti_.isEmpty(); }
  qsizetype quanti() const { return pronti_.size(); }
  /// How long the next frame is; 0 when there is none.
  qsizetype lunghezza() const { return pronto() ? pronti_.first().size() : 0; }
  /// The next frame, carriage return included; empty when there is none.
  QByteArray prendi() { return pronto() ? pronti_.takeFirst() : QByteArray(); }

  /// Something without its carriage return has come that was not handed out yet.
  bool resto() const { return resto_.size() > consegnati_; }
  /// The remainder has not come in time: the rest becomes the next frame as it stands. When the remainder
  /// comes after all, the whole frame follows; but not when what comes is sound by itself.
  void consegna_resto();

  void svuota();

 private:
  /// Longer than any frame.
  static constexpr qsizetype massimo = 256;

  void componi(QByteArrayView riga);
  void svuota_resto();

  QList<QByteArray> pronti_;
  QByteArray resto_;
  qsizetype consegnati_ = 0;  ///< of `resto_`, handed out as they stood
};

}  // namespace lokera
