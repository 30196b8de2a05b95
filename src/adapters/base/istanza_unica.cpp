#include "adapters/base/istanza_unica.h"

#include <QFileInfo>
#include <QSysInfo>

namespace lokera {

using namespace Qt::StringLiterals;

namespace {

QString percorso(const QString& database) {
  return QFileInfo(database).absoluteFilePath() + u'.' + QSysInfo::machineHostName() + u".lock"_s;
}

bool prendi(QLockFile& mark) {
  mark.setStaleLockTime(0);  // a console runs for months: its mark never grows old while the process lives
  return mark.tryLock(0);
}

}  // namespace

IstanzaUnica::IstanzaUnica(const QString& database) : mark_(percorso(database)), presa_(prendi(mark_)) {}

QString IstanzaUnica::chi() const {
  qint64 pid = 0;
  QString computer;
  QString programma;
  if (presa_ || !mark_.getLockInfo(&pid, &computer, &programma)) return {};
  return u"%1 (%2)"_s.arg(programma).arg(pid);
}

}  // namespace lokera
