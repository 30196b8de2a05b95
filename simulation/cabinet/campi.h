#pragma once

#include <QByteArray>
#include <QDateTime>

#include <optional>

namespace lokera::simulazione {

/// Readers of a frame's fields, strict: any character that doesn't belong there gives nothing.
std::optional<int> numero_decimale(QByteArrayView cifre);         ///< one to nine digits
std::optional<int> numero_esadecimale(QByteArrayView cifre);      ///< upper-case digits, one to seven
std::optional<QDateTime> momento_da_cifre(QByteArrayView cifre);  ///< DDMMYYYYHHNNSS

bool cifre_esadecimali(QByteArrayView testo);  ///< also true of an empty text
bool stampabile(QByteArrayView testo);

}  // namespace lokera::simulazione
