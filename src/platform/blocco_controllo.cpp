#include "platform/blocco_controllo.h"

#include <cstdint>
#include <cstring>

namespace lokera {

namespace {

// Eight characters at a time; the fold at the end brings the lanes together.
std::uint8_t xor_di(const char* p, qsizetype n) {
  std::array<std::uint64_t, 4> corsie{};
  for (; n >= 32; p += 32, n -= 32) {
    std::array<std::uint64_t, 4> blocco;
    std::memcpy(blocco.data(), p, sizeof blocco);
    for (size_t i = 0; i < 4; ++i) corsie[i] ^= blocco[i];
  }
  std::uint64_t totale = corsie[0] ^ corsie[1] ^ corsie[2] ^ corsie[3];
  totale ^= totale >> 32;
  totale ^= totale >> 16;
  totale ^= totale >> 8;
  auto bcc = static_cast<std::uint8_t>(totale);
  for (; n > 0; ++p, --n) bcc = static_cast<std::uint8_t>(bcc ^ static_cast<std::uint8_t>(*p));
  return bcc;
}

}  // namespace

std::array<char, 2> blocco_controllo(QByteArrayView testo) {
  constexpr char esadecimali[] = "0123456789ABCDEF";
  const std::uint8_t bcc = xor_di(testo.data(), testo.size());
  return {esadecimali[bcc >> 4], esadecimali[bcc & 15]};
}

}  // namespace lokera
