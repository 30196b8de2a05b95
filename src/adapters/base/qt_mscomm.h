#pragma once

#include <QSerialPort>

#include "adapters/base/nomi_seriali.h"
#include "platform/mscomm.h"

namespace lokera {

/// A serial port of the computer. Like the socket it announces what came by an event posted to itself.
class QtMSComm : public MSComm {
 public:
  explicit QtMSComm(NomiSeriali nomi);
  ~QtMSComm() override { porta_.disconnect(&posta_); }
  Q_DISABLE_COPY_MOVE(QtMSComm)

  void CommPort(int numero) override { numero_ = numero; }
  bool PortOpen(bool aperta) override;
  bool PortOpen() const override { return porta_.isOpen(); }
  QString dispositivo() const override { return porta_.isOpen() ? aperto_ : QString(); }
  qsizetype InBufferCount() const override { return porta_.bytesAvailable(); }
  QByteArray Input() override { return porta_.isOpen() ? porta_.read(1) : QByteArray(); }

 private:
  bool apri();
  void annuncia();
  void consegna();
  void perdi(QSerialPort::SerialPortError errore);

  const NomiSeriali nomi_;
  int numero_ = 1;
  QString aperto_;  // the device of the last opening
  QSerialPort porta_;
  bool annunciato_ = false;
  bool dentro_ = false;
  QObject posta_;  // what posted announcements go to; they end with it
};

class QtMSComms : public MSCommFactory {
 public:
  /// `cartella`: where the devices are, see NomiSeriali.
  explicit QtMSComms(const QString& cartella = NomiSeriali::di_solito()) : nomi_(cartella) {}
  std::unique_ptr<MSComm> crea_mscomm() override { return std::make_unique<QtMSComm>(nomi_); }
  QStringList dispositivi(int numero) const override { return nomi_.dispositivi(numero); }
  std::vector<PortaSeriale> presenti() const override { return nomi_.presenti(); }

 private:
  const NomiSeriali nomi_;
};

}  // namespace lokera
