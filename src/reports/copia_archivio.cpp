#include "reports/copia_archivio.h"

#include <QDir>

#include <cstring>
#include <fcntl.h>
#include <unistd.h>

#include "platform/letterali.h"
#include "platform/momento.h"

namespace lokera {

namespace {

constexpr qsizetype blocco = 1 << 18;
const auto forma_nome = u"ddMMyyyy.HHmmss"_s;

bool solo_zeri(QByteArrayView v) {
  return !v.isEmpty() && v[0] == 0 &&
         std::memcmp(v.data(), v.data() + 1, static_cast<size_t>(v.size() - 1)) == 0;
}

bool stesso_contenuto(QFile& a, QFile& b) {
  QByteArray pezzo = a.read(blocco);
  while (!pezzo.isEmpty() && pezzo == b.read(pezzo.size())) pezzo = a.read(blocco);
  return pezzo.isEmpty() && a.atEnd() && b.atEnd();
}

}  // namespace

bool sincronizza_cartella(const QString& cartella) {
  const int d = ::open(QFile::encodeName(cartella).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (d < 0) return false;
  const bool fatto = ::fsync(d) == 0;
  ::close(d);
  return fatto;
}

CopiaArchivio::CopiaArchivio(const QString& cartella)
    : cartella_(cartella), file_(cartella + u"/DATA.XXXXXX.parziale"_s) {
  QDir().mkpath(cartella);
  buona_ = file_.open();
}

bool CopiaArchivio::aggiungi(QByteArrayView porzione) {
  byte_ += porzione.size();
  return buona_ = buona_ &&
                  (solo_zeri(porzione) ? file_.seek(byte_)
                                       : file_.write(porzione.data(), porzione.size()) == porzione.size());
}

QFile* CopiaArchivio::da_capo() {
  buona_ = buona_ && file_.flush() && file_.resize(byte_) && file_.seek(0);
  return buona_ ? &file_ : nullptr;
}

bool CopiaArchivio::archivia(const QDateTime& adesso) {
  buona_ = da_capo() != nullptr && ::fsync(file_.handle()) == 0;
  if (!buona_) return false;
  QString nome;
  QDateTime quando = adesso;
  do {
    nome = cartella_ + u'/' + quando.toString(forma_nome) + u".txt"_s;
    quando = quando.addSecs(1);
  } while (QFile::exists(nome));
  return buona_ = file_.rename(nome) && sincronizza_cartella(cartella_);
}

std::optional<QDateTime> CopiaArchivio::gia_archiviata() {
  std::optional<QDateTime> ultima;
  for (const QFileInfo& altra : QDir(cartella_).entryInfoList({u"????????.??????.txt"_s}, QDir::Files)) {
    const auto letto = QDateTime::fromString(altra.completeBaseName(), forma_nome);
    const QDateTime quando = momento(letto.date(), letto.time());
    if (altra.size() != byte_ || !quando.isValid() || (ultima && quando < *ultima)) continue;
    QFile file(altra.filePath());
    if (da_capo() && file.open(QIODevice::ReadOnly) && stesso_contenuto(file_, file)) ultima = quando;
  }
  return ultima;
}

}  // namespace lokera
