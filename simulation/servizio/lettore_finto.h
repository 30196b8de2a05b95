#pragma once

#include <QString>

#include <memory>

#include "platform/timer.h"
#include "simulation/comune/caso.h"
#include "simulation/sito/sito.h"

namespace lokera::simulazione {

/// A desk reader with somebody who holds tags to it: a pseudo-terminal behind a symbolic link, which a
/// console opens as a serial port. It goes away with the object.
class LettoreFinto {
 public:
  /// Each tag is held to it twice in a row, as one does to register it. `codici`: see `leggibili`; where
  /// there are none, tags that nobody has registered.
  LettoreFinto(QString link, QByteArrayList codici, quint64 seme);
  ~LettoreFinto() { stacca(); }
  Q_DISABLE_COPY_MOVE(LettoreFinto)

  /// What keeps the link from being made; empty when the reader is there. A link of an earlier run is
  /// replaced, another file is not.
  QString attacca();
  void stacca();

  void inizia(TimerFactory& timer, int ogni_s);
  /// The next tag, now; returns its code. One that nobody has read by then is lost.
  QByteArray mostra();

 private:
  QByteArray scegli();

  const QString link_;
  const QByteArrayList codici_;
  Caso caso_;
  QByteArray codice_;  ///< held once and to be held again; empty before another one
  std::unique_ptr<Timer> timer_;
  int capo_ = -1;
  int altro_ = -1;  ///< the console's end, held so that the terminal stays while no console has it open
};

/// The codes of a site's keys and cards that a desk reader can tell: ten hexadecimal digits, not from "00"
/// on.
QByteArrayList leggibili(const Sito& sito);

}  // namespace lokera::simulazione
