#pragma once

#include "platform/mscomm.h"

namespace lokera {

/// Which devices a serial port's number means. On Windows COM3 alone. Elsewhere, in the folder of devices,
/// the first that opens of: lokera-lettore3, a link by which who looks after the computer gives a reader its
/// number once and for all, and then what the system calls the third of its kind, ttyS2, ttyUSB2, ttyACM2.
class NomiSeriali {
 public:
  static QString di_solito();  ///< the computer's own folder

  explicit NomiSeriali(QString cartella) : cartella_(std::move(cartella)) {}
  QStringList dispositivi(int numero) const;   ///< see MSCommFactory
  std::vector<PortaSeriale> presenti() const;  ///< likewise

 private:
  QString cartella_;
};

}  // namespace lokera
