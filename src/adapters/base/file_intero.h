#pragma once

#include <QString>

namespace lokera {

/// A file that takes its place, and an older one's, only when it is whole. Until then it stands beside it
/// with ".parziale" behind its name, where a rest of an interrupted work is overwritten.
class FileIntero {
 public:
  /// Makes the file, empty.
  explicit FileIntero(const QString& file);
  /// Removes it unless it is in its place.
  ~FileIntero();
  Q_DISABLE_COPY_MOVE(FileIntero)

  /// Why it couldn't be made, in the computer's words; empty when it was.
  const QString& errore() const { return errore_; }
  const QString& nome() const { return nome_; }
  /// Puts it in its place; why not, or empty. Whoever writes it has closed it.
  QString completa();

 private:
  const QString file_;
  const QString nome_;
  QString errore_;
  bool parziale_ = false;
};

}  // namespace lokera
