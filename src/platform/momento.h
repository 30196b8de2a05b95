#pragma once

#include <QDateTime>

namespace lokera {

/// A moment as a calendar and a clock's face show it, with no zone behind it: cabinets, cards and the file
/// hold date and time of day, and in a zone that skips an hour (or a midnight) such a moment is as good as
/// any other. The one way in which the program makes one, so that two of them always compare by what they
/// show. Invalid when `giorno` or `ora` is.
inline QDateTime momento(QDate giorno, QTime ora = QTime(0, 0)) {
  return ora.isValid() ? QDateTime(giorno, ora, Qt::UTC) : QDateTime();
}

/// A local time as the face shows it, its zone left aside. In the hour that is read twice the face says
/// nothing of which time it is.
inline QDateTime come_si_legge(const QDateTime& locale) {
  return momento(locale.date(), locale.time());
}

}  // namespace lokera
