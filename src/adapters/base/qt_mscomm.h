#pragma once

#include <QSerialPort>
#include <QStringList>

#include "platform/mscomm.h"

namespace lokera {

/// A serial port of the computer. Like the socket it announces what came by an event posted to itself.
class QtMSComm : public MSComm {
 public:
  /// `nomi`: see QtMSComms.
  explicit QtMSComm(QStringList nomi);
  ~QtMSComm() override { porta_.disconnect(&posta_); }
  Q_DISABLE_COPY_MOVE(QtMSComm)

  void CommPort(int numero) override { numero_ = numero; }
  bool PortOpen(bool aperta) override;
  bool PortOpen() const override { return porta_.isOpen(); }
  qsizetype InBufferCount() const override { return porta_.bytesAvailable(); }
  QByteArray Input() override { return porta_.isOpen() ? porta_.read(1) : QByteArray(); }

 private:
  bool apri();
  void annuncia();
  void consegna();

  const QStringList nomi_;
  int numero_ = 1;
  QSerialPort porta_;
  bool annunciato_ = false;
  bool dentro_ = false;
  QObject posta_;  // what posted announcements go to; they end with it
};

class QtMSComms : public MSCommFactory {
 public:
  /// Port 1 is the first device of a kind: "ttyS0", or "ttyUSB0" when that doesn't open, or "ttyACM0". A link
  /// "COM1" in /dev comes before all of them, for whoever has ports of several kinds.
  static QStringList di_solito();

  /// `nomi`: of the devices, tried in order; "%1" stands for the number, "%2" for the number less one.
  explicit QtMSComms(QStringList nomi) : nomi_(std::move(nomi)) {}
  std::unique_ptr<MSComm> crea_mscomm() override { return std::make_unique<QtMSComm>(nomi_); }

 private:
  const QStringList nomi_;
};

}  // namespace lokera
