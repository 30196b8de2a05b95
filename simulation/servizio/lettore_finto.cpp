#include "simulation/servizio/lettore_finto.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <cstring>
#include <fcntl.h>
#include <pty.h>
#include <unistd.h>

namespace lokera::simulazione {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype cifre_codice = 10;

bool leggibile(const QByteArray& codice) {
  return codice.size() == cifre_codice && !codice.startsWith("00") &&
         std::ranges::all_of(codice, [](char c) { return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'F'); });
}

bool crea_terminale(int& capo, int& altro, QString& nome) {
  termios crudo{};
  cfmakeraw(&crudo);
  crudo.c_cflag |= CREAD;
  char percorso[256];
  if (::openpty(&capo, &altro, percorso, &crudo, nullptr) != 0) return false;
  ::fcntl(capo, F_SETFL, O_NONBLOCK);
  nome = QFile::decodeName(percorso);
  return true;
}

}  // namespace

LettoreFinto::LettoreFinto(QString link, QByteArrayList codici, quint64 seme)
    : link_(std::move(link)), codici_(std::move(codici)), caso_(seme) {}

QString LettoreFinto::attacca() {
  QString nome;
  if (!crea_terminale(capo_, altro_, nome))
    return u"no pseudo-terminal: "_s + QString::fromLocal8Bit(std::strerror(errno));
  if (QFileInfo(link_).isSymLink()) QFile::remove(link_);
  if (QFile::link(nome, link_)) return {};
  ::close(std::exchange(capo_, -1));
  ::close(std::exchange(altro_, -1));
  return u"can't make the link "_s + link_;
}

void LettoreFinto::stacca() {
  timer_.reset();
  if (capo_ < 0) return;
  QFile::remove(link_);
  ::close(std::exchange(capo_, -1));
  ::close(std::exchange(altro_, -1));
}

void LettoreFinto::inizia(TimerFactory& timer, int ogni_s) {
  timer_ = timer.crea_timer();
  timer_->Evento = [this] { mostra(); };
  timer_->Interval(ogni_s * 1000);
  timer_->Enabled(true);
}

QByteArray LettoreFinto::mostra() {
  const bool di_nuovo = !codice_.isEmpty();
  const QByteArray codice = di_nuovo ? codice_ : scegli();
  codice_ = di_nuovo ? QByteArray() : codice;
  const QByteArray byte = QByteArray::fromHex("FF01" + codice + "00");
  ::tcflush(altro_, TCIFLUSH);
  return ::write(capo_, byte.constData(), static_cast<size_t>(byte.size())) == byte.size() ? codice
                                                                                           : QByteArray();
}

QByteArray LettoreFinto::scegli() {
  if (!codici_.isEmpty())
    return codici_[static_cast<qsizetype>(caso_.sotto(static_cast<quint64>(codici_.size())))];
  return QByteArray::number(caso_.fra(0x01'0000'0000, 0xFF'FFFF'FFFF), 16)
      .toUpper()
      .rightJustified(cifre_codice, '0');
}

QByteArrayList leggibili(const Sito& sito) {
  QByteArrayList codici;
  codici.reserve(qsizetype(sito.chiavi.size()) + qsizetype(sito.tessere.size()));
  for (const Sito::Chiave& chiave : sito.chiavi) codici.append(chiave.codice);
  for (const QByteArray& tessera : sito.tessere) codici.append(tessera);
  codici.removeIf([](const QByteArray& codice) { return !leggibile(codice); });
  return codici;
}

}  // namespace lokera::simulazione
