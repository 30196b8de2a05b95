#include "adapters/base/qt_mscomm.h"

#include <utility>

#include "platform/letterali.h"

namespace lokera {

namespace {

constexpr qint64 memoria_arrivi = 1024;

QString nome_porta(const QString& nome, int numero) {
  return QString(nome)
      .replace("%1"_L1, QString::number(numero))
      .replace("%2"_L1, QString::number(numero - 1));
}

}  // namespace

QtMSComm::QtMSComm(QStringList nomi) : nomi_(std::move(nomi)) {
  porta_.setReadBufferSize(memoria_arrivi);
  QObject::connect(&porta_, &QSerialPort::readyRead, &posta_, [this] { annuncia(); });
  // Posted: the port may not be closed inside its own signal. What can't be read now will never be.
  QObject::connect(
      &porta_, &QSerialPort::errorOccurred, &posta_,
      [this](QSerialPort::SerialPortError errore) {
        const bool perduta = errore == QSerialPort::ResourceError || errore == QSerialPort::ReadError;
        if (perduta && porta_.isOpen() && porta_.error() == errore) porta_.close();
      },
      Qt::QueuedConnection);
}

bool QtMSComm::PortOpen(bool aperta) {
  if (porta_.isOpen()) porta_.close();
  return !aperta || apri();
}

bool QtMSComm::apri() {
  for (const QString& nome : nomi_) {
    porta_.setPortName(nome_porta(nome, numero_));
    if (porta_.open(QIODevice::ReadOnly)) return true;
  }
  return false;
}

void QtMSComm::annuncia() {
  if (InBufferCount() == 0 || dentro_ || std::exchange(annunciato_, true)) return;
  QMetaObject::invokeMethod(
      &posta_, [this] { consegna(); }, Qt::QueuedConnection);
}

void QtMSComm::consegna() {
  annunciato_ = false;
  if (InBufferCount() == 0) return;  // closed, or read already
  dentro_ = true;
  if (const auto evento = OnComm) evento();
  dentro_ = false;
  annuncia();
}

QStringList QtMSComms::di_solito() {
  return {u"COM%1"_s, u"ttyS%2"_s, u"ttyUSB%2"_s, u"ttyACM%2"_s};
}

}  // namespace lokera
