#include "store/file_parziale.h"

#include <QFile>

namespace lokera {

using namespace Qt::StringLiterals;

FileParziale::FileParziale(const QString& file) : file_(file), nome_(file + u".parziale"_s) {
  if (QFile::exists(file_)) {
    inizio_ = {1, u"Il file esiste già: "_s + file_};
    return;
  }
  nostro_ = QFile(nome_).open(QIODevice::WriteOnly | QIODevice::NewOnly);
  if (nostro_) return;
  inizio_ = {1, QFile::exists(nome_)
                    ? u"Il file esiste già, resto di un lavoro interrotto o in corso: "_s + nome_
                    : u"Impossibile scrivere il file: "_s + nome_};
}

FileParziale::~FileParziale() {
  if (nostro_) QFile::remove(nome_);
}

Errore FileParziale::conferma() {
  if (!QFile::rename(nome_, file_)) return {1, u"Impossibile scrivere il file: "_s + file_};
  nostro_ = false;
  return {};
}

}  // namespace lokera
