#include "link/protocollo.h"

#include <QStringList>

#include <algorithm>
#include <array>
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

std::array<char, 2> cifre(std::uint8_t bcc) {
  constexpr char esadecimali[] = "0123456789ABCDEF";
  return {esadecimali[bcc >> 4], esadecimali[bcc & 15]};
}

}  // namespace

QByteArray calcola_bcc(QByteArrayView testo) {
  const auto bcc = cifre(xor_di(testo.data(), testo.size()));
  return {bcc.data(), 2};
}

QByteArray componi_frame(QByteArrayView testo) {
  const auto bcc = cifre(xor_di(testo.data(), testo.size()));
  QByteArray frame(testo.size() + 3, Qt::Uninitialized);
  char* fine = std::copy(testo.begin(), testo.end(), frame.data());
  fine = std::copy(bcc.begin(), bcc.end(), fine);
  *fine = '\r';
  return frame;
}

QByteArrayView campo_frame(QByteArrayView frame, qsizetype da, qsizetype larghezza) {
  if (da > frame.size() || larghezza <= 0) return {};
  return frame.sliced(da - 1, std::min(larghezza, frame.size() - da + 1));
}

QByteArrayView codice_comando(QByteArrayView frame) {
  return campo_frame(frame, 1, 5);
}

bool risposta_buona(QByteArrayView frame) {
  return campo_frame(frame, 6, 2) == "00";
}

bool solo_ascii(QByteArrayView frame) {
  return std::ranges::all_of(frame, [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

QString messaggio_risposta(QByteArrayView codice) {
  struct Voce {
    const char* codice;
    const char* messaggio;
  };
  static constexpr Voce voci[] = {
      {"00", ""},
      {"02", "Errore BCC"},
      {"03", "Uno o più campi dati sono oltre il range ammesso"},
      {"04", "Comando sconosciuto o non supportato"},
      {"05", "Impossibile eseguire il comando"},
      {"06", "Errore eeprom"},
      {"13", "Comando non valido"},
      {"14", "Record non presente"},
  };
  for (const Voce& v : voci) {
    if (codice == v.codice) return QString::fromUtf8(v.messaggio);
  }
  return QStringLiteral("Errore non previsto");
}

QString normalizza_ip(const QString& testo) {
  QStringList gruppi;
  for (const int inizio : {0, 4, 8, 12}) gruppi << QString::number(testo.mid(inizio, 3).toInt());
  return gruppi.join(QLatin1Char('.'));
}

}  // namespace lokera
