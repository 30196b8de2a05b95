#pragma once

#include <QByteArray>

#include <array>

namespace lokera {

/// The block check of a frame: XOR of the characters of `testo` as two upper-case hexadecimal digits, "00"
/// for an empty text.
std::array<char, 2> blocco_controllo(QByteArrayView testo);

}  // namespace lokera
