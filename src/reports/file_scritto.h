#pragma once

#include <QByteArray>
#include <QSaveFile>

namespace lokera {

/// A text file that is written line by line and takes its place, and an older one's, only when it is whole.
/// Until then nothing of it is seen, and nothing is left of one that isn't completed.
class FileScritto {
 public:
  /// The file's folder is made where it isn't there.
  explicit FileScritto(const QString& file);

  QString nome() const { return file_.fileName(); }
  /// Writes the line and its end, CR and LF. After a failure it does nothing.
  void riga(QByteArrayView testo);
  /// Puts the file in its place. What went wrong, from its beginning on, in the computer's words; empty when
  /// it stands.
  QString completa();

 private:
  void scarica();

  QSaveFile file_;
  QByteArray da_scrivere_;
  QString errore_;
};

}  // namespace lokera
