#pragma once

#include <QString>

#include "store/errore.h"

namespace lokera {

/// A file in the making: it bears ".parziale" behind its name until it is whole, and is removed unless it was
/// confirmed. What bears either name already belongs to somebody else and stays as it is.
class FileParziale {
 public:
  /// Makes the file, empty.
  explicit FileParziale(const QString& file);
  ~FileParziale();
  FileParziale(const FileParziale&) = delete;
  FileParziale& operator=(const FileParziale&) = delete;

  /// The failure of the beginning, if there was one.
  const Errore& inizio() const { return inizio_; }
  const QString& nome() const { return nome_; }
  /// Gives the file its own name.
  Errore conferma();

 private:
  const QString file_;
  const QString nome_;
  Errore inizio_;
  bool nostro_ = false;
};

}  // namespace lokera
