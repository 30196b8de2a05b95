#include "adapters/base/qt_mscomm.h"

#include <utility>

namespace lokera {

namespace {

constexpr qint64 memoria_arrivi = 1024;

}  // namespace

QtMSComm::QtMSComm(NomiSeriali nomi) : nomi_(std::move(nomi)) {
  porta_.setReadBufferSize(memoria_arrivi);
  QObject::connect(&porta_, &QSerialPort::readyRead, &posta_, [this] { annuncia(); });
  // Posted: the port may not be closed inside its own signal. What can't be read now will never be.
  QObject::connect(
      &porta_, &QSerialPort::errorOccurred, &posta_, [this](auto errore) { perdi(errore); },
      Qt::QueuedConnection);
}

void QtMSComm::perdi(QSerialPort::SerialPortError errore) {
  const bool perduta = errore == QSerialPort::ResourceError || errore == QSerialPort::ReadError;
  if (!perduta || !porta_.isOpen() || porta_.error() != errore) return;
  porta_.close();
  if (const auto evento = Perduta) evento();
}

bool QtMSComm::PortOpen(bool aperta) {
  if (porta_.isOpen()) porta_.close();
  return !aperta || apri();
}

// What the device sent before somebody listened waits in the system for who opens it, a tag of an hour ago
// too.
bool QtMSComm::apri() {
  for (const QString& nome : nomi_.dispositivi(numero_)) {
    porta_.setPortName(nome);
    if (!porta_.open(QIODevice::ReadOnly)) continue;
    porta_.clear(QSerialPort::Input);
    aperto_ = nome;
    return true;
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

}  // namespace lokera
