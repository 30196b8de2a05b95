#pragma once

#include <QDateTime>
#include <QTemporaryFile>

#include <optional>

namespace lokera {

/// The copy of a card's file that stays on this computer, "ddmmyyyy.hhmmss.txt" by its moment. It has that
/// name only when it is whole and on the disk; it goes away with the object unless it is kept.
class CopiaArchivio {
 public:
  /// The folder is made where it isn't there.
  explicit CopiaArchivio(const QString& cartella);

  // Each returns false after a failure, from then on.
  /// Portions of nothing but zeros take no room.
  bool aggiungi(QByteArrayView porzione);
  /// Gives it its name, or that of the next second that is free.
  bool archivia(const QDateTime& adesso);
  void tieni() { file_.setAutoRemove(false); }

  /// Why not, in the computer's words.
  QString errore() const { return file_.errorString(); }
  qint64 byte() const { return byte_; }
  /// When the same content was archived last; none when it never was.
  std::optional<QDateTime> gia_archiviata();
  /// To read back what was added, from its beginning; none after a failure. Before it is archived.
  QFile* da_capo();

 private:
  QString cartella_;
  QTemporaryFile file_;
  qint64 byte_ = 0;
  bool buona_;
};

/// Has the folder's entries on the disk.
bool sincronizza_cartella(const QString& cartella);

}  // namespace lokera
