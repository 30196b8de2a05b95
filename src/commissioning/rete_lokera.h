#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace lokera {

/// Where a cabinet is found on the network. Addresses in the stored form of 15 characters, "192.168.015.250".
struct ReteLokera {
  QString indirizzo;
  QString porta;  ///< as it came or was typed: five digits when all is well
  QString maschera;
  QString gateway;
};

/// The length from which on a reply to a search has all that is read of it.
constexpr qsizetype lunghezza_scoperta = 60;

/// The settings in a reply to "000A0"; none when it is too short, or an address has other than digits.
std::optional<ReteLokera> leggi_scoperta(QByteArrayView frame);

/// "000A1" with its fields, still without block check. It names no cabinet: each one that is on takes it.
QByteArray testo_impostazioni(const ReteLokera& rete);

/// Whether a field is long enough to hold an address. What it holds nobody looks at.
constexpr qsizetype lunghezza_indirizzo = 15;

}  // namespace lokera
