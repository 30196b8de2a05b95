#pragma once

#include <QDateTime>
#include <QString>
#include <QTime>

#include <optional>

namespace lokera {

/// Day zero of the store: a date that is only a time of day lies on it.
QDate giorno_zero();

/// A time of day as the store keeps it.
QDateTime ora(QTime t);

/// Whole minutes from `a` to `b` as a clock face shows them: the number of minute marks passed, seconds left
/// aside; negative when `b` is earlier. Only the times of day count.
int minuti_tra(QTime a, QTime b);

/// Which number of a written date comes first when both orders give a date.
enum class OrdineData { giorno_mese, mese_giorno };

/// Reads a date, a time or both as people and statements write them: "1/2/2008", "01-02-08 10.20.30", "8:30",
/// "2008-02-01 10:20:30". When the order asked for gives no date the other one is tried. A time alone lies on
/// day zero. Nothing when the text is no date.
std::optional<QDateTime> leggi_data(QStringView testo, OrdineData ordine);

/// The form in which the store keeps a date, "yyyy-MM-dd HH:mm:ss", and its way back (an invalid date when
/// the text has another form).
QByteArray data_memorizzata(const QDateTime& data);
QDateTime da_data_memorizzata(QByteArrayView testo);

/// A date as people read it: "22/11/2008", "22/11/2008 10:20:30", and "10:20:30" for a time alone.
QString testo_italiano(const QDateTime& data);

}  // namespace lokera
