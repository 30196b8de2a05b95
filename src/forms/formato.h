#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QString>
#include <QVariant>

#include <optional>

#include "store/recordset.h"

namespace lokera {

/// How values are shown to a user and read back, the Italian way whatever the computer's settings: dates
/// dd/mm/yyyy, times hh.mm.ss, a decimal comma. A date on the store's day zero is a time of day.
///
/// Appends the value as a cell shows it. `grezzo` is the store's own text. `formato` is empty or made of
/// d dd m mm yy yyyy h hh n nn s ss (m after h means minutes) for dates, of 0 # , . for numbers: "0000",
/// "#,##0.00".
void formatta(QByteArray& a, QByteArrayView grezzo, TipoCampo tipo, QByteArrayView formato = {});

/// The same for a value; empty for Null.
QString formatta(const QVariant& valore, QStringView formato = {});

/// A number as a user writes it: "12", "-3,5", "3.5", "1.250" (thousands).
std::optional<double> leggi_numero(QStringView testo);

/// A date as a cell shows it, "30/11/2008", with "15.45.01" or "15.45" behind it or not. Invalid when the
/// text is none. Quick: for whole columns.
QDateTime leggi_data_mostrata(QByteArrayView testo);

/// A date, a time or both as a user writes them: "30/11/2008 15.45.01", "1/2/08", "8", "8.30", "08:30". A
/// time alone lies on day zero. Invalid when the text is none of these.
QDateTime leggi_data_digitata(QStringView testo);

}  // namespace lokera
