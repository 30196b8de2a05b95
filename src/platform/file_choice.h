#pragma once

#include <QString>

#include <optional>

namespace lokera {

/// What the choice of a file begins with.
struct SceltaFile {
  QString titolo;  ///< the dialog's usual one when empty
  QString filtro;  ///< pairs "description|pattern", joined by "|"; several patterns by ";". Empty: all files
  QString nome;    ///< the name that is proposed
  QString cartella;  ///< where it begins; where the last choice was made when empty
};

/// The choice of a file. Modal, like a message box. A choice is a whole path; there is none when the person
/// cancelled.
class FileChoice {
 public:
  virtual ~FileChoice() = default;
  /// A file that exists.
  virtual std::optional<QString> apri(const SceltaFile& scelta) = 0;
  /// A file to write. One that exists is returned only after the person agreed to have it replaced.
  virtual std::optional<QString> salva(const SceltaFile& scelta) = 0;
};

}  // namespace lokera
