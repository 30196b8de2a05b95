#include "reports/file_scritto.h"

#include <QDir>
#include <QFileInfo>

namespace lokera {

namespace {
constexpr qsizetype blocco = 1 << 20;
}  // namespace

FileScritto::FileScritto(const QString& file) : file_(file) {
  QDir().mkpath(QFileInfo(file).absolutePath());
  if (!file_.open(QIODevice::WriteOnly)) errore_ = file_.errorString();
}

void FileScritto::riga(QByteArrayView testo) {
  da_scrivere_ += testo;
  da_scrivere_ += "\r\n";
  if (da_scrivere_.size() >= blocco) scarica();
}

void FileScritto::scarica() {
  if (errore_.isEmpty() && file_.write(da_scrivere_) != da_scrivere_.size()) errore_ = file_.errorString();
  da_scrivere_.resize(0);
}

QString FileScritto::completa() {
  scarica();
  if (!errore_.isEmpty()) {
    file_.cancelWriting();
    return errore_;
  }
  return file_.commit() ? QString() : file_.errorString();
}

}  // namespace lokera
