#pragma once

#include <QDateTime>
#include <QFile>
#include <QList>

#include "reports/copia_archivio.h"
#include "reports/lettore_data.h"
#include "store/connection.h"

namespace lokera {

/// What kept an import from its end.
enum class GuastoImportazione {
  nessuno,
  lettura,        ///< the card's file can't be read
  copia,          ///< the copy for the archive can't be written
  registrazione,  ///< the movements can't be booked
  cancellazione,  ///< they are booked, but the card's file can't be deleted
};

/// One DATA.TXT on its way into the book. First it is read, in portions: its lines are counted and checked,
/// and the copy for the archive is written. Then the copy's movements are booked, all or none.
///
/// The copy has its name before the movements are committed, and the card's file goes after that. So nothing
/// is lost wherever the power goes, and a file that is still there after its import has a copy that tells.
/// After a power cut in the commit itself the copy may tell of an import that never was.
class ImportazioneSd {
 public:
  /// `cartella` is the archive's.
  ImportazioneSd(const QString& file, const QString& cartella);

  int kb() const { return kb_; }  ///< of the whole file, at least 1
  /// Reads on. Returns how many kB of it are done: all only when the end was found.
  int leggi();
  bool letta() const { return letta_; }

  // From the end of the reading on.
  bool senza_movimenti() const { return movimenti_ == 0 && lasciate_ > 0; }
  /// Movements whose moment is no date; a file of nothing else may be no cabinet's.
  qint64 senza_data() const { return senza_data_; }
  bool nessuna_data() const { return movimenti_ > 0 && senza_data_ == movimenti_; }
  qint64 lasciate() const { return lasciate_; }  ///< lines that no cabinet has written
  const QList<qint64>& prime_lasciate() const { return prime_lasciate_; }  ///< the numbers of a few of them
  /// When a file of the same content was imported last; none when it never was.
  std::optional<QDateTime> gia_importata() { return copia_.gia_archiviata(); }
  /// Books the movements and takes the file off the card. A copy for the archive stays as of `adesso`.
  void registra(Connection& connessione, const QDateTime& adesso);

  GuastoImportazione guasto() const { return guasto_; }
  const QString& parole() const { return parole_; }  ///< the failure in the computer's or the store's words

 private:
  void fallisce(GuastoImportazione guasto, const QString& parole);
  void conta(const std::optional<RigaData>& riga);
  Errore registra_righe(Connection& connessione, const QDateTime& adesso);

  QFile file_;
  CopiaArchivio copia_;
  LettoreData lettore_;
  QByteArray blocco_;  ///< the portion that is read
  int kb_ = 1;
  bool letta_ = false;
  qint64 movimenti_ = 0;
  qint64 senza_data_ = 0;
  qint64 lasciate_ = 0;
  QList<qint64> prime_lasciate_;
  GuastoImportazione guasto_ = GuastoImportazione::nessuno;
  QString parole_;
};

}  // namespace lokera
