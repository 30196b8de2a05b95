#pragma once

#include <QDateTime>
#include <QTime>

namespace lokera {

/// Day zero of the store: a date that is only a time of day lies on it.
QDate giorno_zero();

/// A time of day as the store keeps it.
QDateTime ora(QTime t);

/// Whole minutes from `a` to `b` as a clock face shows them: the number of minute marks passed, seconds left aside;
/// negative when `b` is earlier. Only the times of day count.
int minuti_tra(QTime a, QTime b);

}  // namespace lokera
