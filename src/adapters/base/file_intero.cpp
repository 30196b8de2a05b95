#include "adapters/base/file_intero.h"

#include <QFile>

#include <filesystem>
#include <unistd.h>

#include "platform/letterali.h"

namespace lokera {

FileIntero::FileIntero(const QString& file) : file_(file), nome_(file + u".parziale"_s) {
  QFile nuovo(nome_);
  parziale_ = nuovo.open(QIODevice::WriteOnly | QIODevice::Truncate);
  if (!parziale_) errore_ = nuovo.errorString();
}

FileIntero::~FileIntero() {
  if (parziale_) QFile::remove(nome_);
}

QString FileIntero::completa() {
  if (!parziale_) return errore_;
  QFile scritto(nome_);
  if (!scritto.open(QIODevice::ReadOnly) || ::fsync(scritto.handle()) != 0)
    return qt_error_string(errno);  // a full disk may tell only now
  std::error_code guasto;
  std::filesystem::rename(nome_.toStdU16String(), file_.toStdU16String(), guasto);
  if (guasto) return qt_error_string(guasto.value());
  parziale_ = false;
  return {};
}

}  // namespace lokera
