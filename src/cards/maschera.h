#pragma once

#include <QByteArray>
#include <QString>
#include <QTime>

#include <bitset>
#include <vector>

#include "store/connection.h"

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

/// A key that hangs at a position, counted from 0.
struct ChiaveAppesa {
  qlonglong posizione, gruppo;
};

/// The keys of the card's groups, of every cabinet, at the positions `da` to `a`, whatever the hour.
Esito<std::vector<ChiaveAppesa>> chiavi_di_tessera(Connection& connessione, const QString& codice, int da,
                                                   int a);

/// The key positions that the card may open now: the keys of its groups, less those whose bands of the day
/// `giorno` are all closed.
Esito<Maschera> calcola_maschera(Connection& connessione, const QString& codice, const QString& giorno,
                                 QTime adesso);

}  // namespace lokera
