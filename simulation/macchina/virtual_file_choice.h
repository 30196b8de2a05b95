#pragma once

#include <QFile>
#include <QList>

#include "platform/file_choice.h"

namespace lokera::simulazione {

/// A choice of files that nobody sees, on the files that there are.
class VirtualFileChoice : public FileChoice {
 public:
  std::optional<QString> apri(const SceltaFile& scelta) override {
    fatte.append(scelta);
    return prossima();
  }
  std::optional<QString> salva(const SceltaFile& scelta) override {
    fatte.append(scelta);
    auto nome = prossima();
    while (nome && QFile::exists(*nome) && !(!sostituisce.isEmpty() && sostituisce.takeFirst()))
      nome = prossima();
    return nome;
  }

  QList<SceltaFile> fatte;
  QList<std::optional<QString>> risposte;  ///< whole paths; cancelled when there is none left
  /// For each existing file that would be written, whether to replace it; after a No, and with none left, the
  /// person takes the next of `risposte`.
  QList<bool> sostituisce;

 private:
  std::optional<QString> prossima() { return risposte.isEmpty() ? std::nullopt : risposte.takeFirst(); }
};

}  // namespace lokera::simulazione
