#pragma once

#include <QByteArray>
#include <QString>

#include "platform/campo_frame.h"

namespace lokera {

/// Frames: five characters of command code, payload, two hexadecimal digits of block check, carriage return.
/// Text of single-byte characters. Positions are counted from 1.

/// XOR of the characters of `testo` as two upper-case hexadecimal digits; "00" for an empty text.
QByteArray calcola_bcc(QByteArrayView testo);

/// `testo`, its block check, a carriage return.
QByteArray componi_frame(QByteArrayView testo);

/// The three frames of a read of stored transactions, carriage return included.
inline constexpr char frame_leggi_transazione[] = "0003635\r";
inline constexpr char frame_conferma_transazione[] = "0003734\r";
inline constexpr char frame_conta_transazioni[] = "000393A\r";

/// Positions 1 to 5.
QByteArrayView codice_comando(QByteArrayView frame);

/// Whether positions 6 and 7 are "00".
bool risposta_buona(QByteArrayView frame);

/// Whether the carriage return is there. What was cut off on its way is never booked, acknowledged or granted
/// on.
bool frame_intero(QByteArrayView frame);

/// Whether there is something and all of it is decimal digits.
bool solo_cifre(QByteArrayView testo);

/// False for a buffer with a character outside ASCII, which no frame has.
bool solo_ascii(QByteArrayView frame);

/// The message of a reply code, in Italian; empty for "00".
QString messaggio_risposta(QByteArrayView codice);

/// "192.168.015.250" (15 characters) in the form that a socket takes, "192.168.15.250".
QString normalizza_ip(const QString& testo);

}  // namespace lokera
