#pragma once

#include <QByteArray>
#include <QDateTime>

#include <optional>

namespace lokera::simulazione {

/// Readers of a frame's fields, strict: any character that doesn't belong there gives nothing.
std::optional<int> numero_decimale(QByteArrayView cifre);         ///< one to nine digits
std::optional<int> numero_esadecimale(QByteArrayView cifre);      ///< upper-case digits, one to seven
std::optional<QDateTime> momento_da_cifre(QByteArrayView cifre);  ///< DDMMYYYYHHNNSS

/// "127.0.0.2" as the twelve digits of the wire, and back; empty when the digits are no address.
QByteArray cifre_indirizzo(const QString& indirizzo);
QString indirizzo_da_cifre(QByteArrayView cifre);

bool cifre_esadecimali(QByteArrayView testo);  ///< also true of an empty text
bool stampabile(QByteArrayView testo);

}  // namespace lokera::simulazione
