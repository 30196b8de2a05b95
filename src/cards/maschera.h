#pragma once

#include <QByteArray>
#include <QString>
#include <QTime>

#include <bitset>

#include "store/database.h"

namespace lokera {

/// Key positions that a mask can express, from 0.
constexpr int posizioni_maschera = 200;
using Maschera = std::bitset<posizioni_maschera>;

/// Text of "0" and "1" characters, the first the highest bit, as exactly two hexadecimal digits; "00" for
/// what does not fit.
QByteArray byte_esadecimale(QByteArrayView bit);

/// 50 hexadecimal digits: byte 0 first, the lowest position of a byte its highest bit.
QByteArray maschera_esadecimale(const Maschera& maschera);

/// Whether a key with this band may be taken at `adesso`: from five minutes before the opening, to the minute
/// of the closing.
bool fascia_in_vigore(QTime dalle, QTime alle, QTime adesso);

/// The key positions that the card may open now: all keys of its groups, of every cabinet, less those whose
/// bands of the day `giorno` are all closed. A failed query is returned and leaves the mask empty.
Errore calcola_maschera(Connection& connessione, const QString& codice, const QString& giorno, QTime adesso,
                        Maschera& maschera);

}  // namespace lokera
