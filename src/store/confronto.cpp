#include "store/confronto.h"

#include <QChar>

#include <algorithm>
#include <array>

namespace lokera {

namespace {

constexpr unsigned char minuscola_ascii(unsigned char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<unsigned char>(c + 32) : c;
}

/// Bytes that are no UTF-8 stand for themselves, beyond all letters, so that any two texts have one order.
constexpr char32_t byte_estraneo = 0x110000;

/// Reads the letter at `i` and moves `i` behind it.
char32_t prossima(QByteArrayView s, qsizetype& i) {
  const auto c = static_cast<unsigned char>(s[i++]);
  if (c < 0x80) return c;
  const int seguono = c >= 0xF0 && c < 0xF8 ? 3 : c >= 0xE0 ? 2 : c >= 0xC0 ? 1 : 0;
  if (seguono == 0 || c >= 0xF8 || i + seguono > s.size()) return byte_estraneo + c;
  char32_t lettera = c & (0x3FU >> seguono);
  for (int k = 0; k < seguono; ++k) {
    const auto n = static_cast<unsigned char>(s[i + k]);
    if ((n & 0xC0U) != 0x80U) return byte_estraneo + c;
    lettera = (lettera << 6U) | (n & 0x3FU);
  }
  i += seguono;
  return lettera;
}

char32_t piega(char32_t c) {
  if (c < 0x80) return minuscola_ascii(static_cast<unsigned char>(c));
  if (c >= byte_estraneo) return c;
  return QChar::toLower(QChar::toUpper(QChar::toLower(c)));
}

/// The plain letter under an accented one.
char32_t lettera_base(char32_t c) {
  if (c < 0xC0 || c >= byte_estraneo) return c;
  const QString scomposta = QChar::decomposition(c);
  if (scomposta.isEmpty() || QChar::decompositionTag(c) != QChar::Canonical) return c;
  if (!scomposta[0].isSurrogate()) return lettera_base(scomposta[0].unicode());
  return scomposta.size() > 1 ? QChar::surrogateToUcs4(scomposta[0], scomposta[1]) : c;
}

/// From the first letter that is not plain ASCII on: plain letters decide first, accents only between texts
/// that are the same without them.
int confronta_lettere(QByteArrayView a, QByteArrayView b, qsizetype inizio) {
  qsizetype i = inizio;
  qsizetype j = inizio;
  int accenti = 0;
  while (i < a.size() && j < b.size()) {
    const char32_t x = piega(prossima(a, i));
    const char32_t y = piega(prossima(b, j));
    if (x == y) continue;
    const char32_t bx = lettera_base(x);
    const char32_t by = lettera_base(y);
    if (bx != by) return bx < by ? -1 : 1;
    if (accenti == 0) accenti = x < y ? -1 : 1;
  }
  const bool resta_a = i < a.size();
  const bool resta_b = j < b.size();
  if (resta_a != resta_b) return resta_a ? 1 : -1;
  return accenti;
}

template <typename Funzione>
QString per_lettera(QStringView testo, Funzione funzione) {
  QString risultato;
  risultato.reserve(testo.size());
  for (qsizetype i = 0; i < testo.size(); ++i) {
    const QChar c = testo[i];
    if (c.isHighSurrogate() && i + 1 < testo.size() && testo[i + 1].isLowSurrogate()) {
      const char32_t intera = funzione(QChar::surrogateToUcs4(c, testo[++i]));
      risultato += QChar(QChar::highSurrogate(intera));
      risultato += QChar(QChar::lowSurrogate(intera));
    } else {
      risultato += QChar(static_cast<char16_t>(funzione(c.unicode())));
    }
  }
  return risultato;
}

}  // namespace

char32_t lettera_minuscola(char32_t c) {
  return QChar::toLower(c);
}
char32_t lettera_maiuscola(char32_t c) {
  return QChar::toUpper(c);
}
QString minuscolo(QStringView testo) {
  return per_lettera(testo, lettera_minuscola);
}
QString maiuscolo(QStringView testo) {
  return per_lettera(testo, lettera_maiuscola);
}

int confronta(QByteArrayView a, QByteArrayView b) {
  const qsizetype comune = std::min(a.size(), b.size());
  for (qsizetype i = 0; i < comune; ++i) {
    const auto x = static_cast<unsigned char>(a[i]);
    const auto y = static_cast<unsigned char>(b[i]);
    if ((x | y) >= 0x80U) return confronta_lettere(a, b, i);
    if (x == y) continue;
    const int differenza = minuscola_ascii(x) - minuscola_ascii(y);
    if (differenza != 0) return differenza;
  }
  return a.size() == b.size() ? 0 : a.size() < b.size() ? -1 : 1;
}

// The plain letters as UTF-8, whose bytes are in the order of the letters.
void aggiungi_chiave(QByteArray& chiavi, QByteArrayView testo) {
  constexpr std::array<char32_t, 4> primo{0, 0xC0, 0xE0, 0xF0};
  for (qsizetype i = 0; i < testo.size();) {
    const char32_t c = lettera_base(piega(prossima(testo, i)));
    if (c < 0x80) {
      chiavi += static_cast<char>(c);
      continue;
    }
    const unsigned seguono = c >= 0x10000 ? 3 : c >= 0x800 ? 2 : 1;
    chiavi += static_cast<char>(primo[seguono] | c >> 6U * seguono);
    for (unsigned k = seguono; k-- > 0;) chiavi += static_cast<char>(0x80U | (c >> 6U * k & 0x3FU));
  }
}

std::vector<char32_t> lettere_piegate(QByteArrayView utf8) {
  std::vector<char32_t> lettere;
  lettere.reserve(static_cast<size_t>(utf8.size()));
  for (qsizetype i = 0; i < utf8.size();) lettere.push_back(piega(prossima(utf8, i)));
  return lettere;
}

bool somiglia(const std::vector<char32_t>& modello, QByteArrayView testo) {
  size_t m = 0;
  qsizetype t = 0;
  size_t dopo_percento = 0;  // 0: no % seen yet
  qsizetype ripresa = 0;
  while (t < testo.size()) {
    if (m < modello.size() && modello[m] == U'%') {
      dopo_percento = ++m;
      ripresa = t;
      continue;
    }
    qsizetype seguente = t;
    const char32_t lettera = piega(prossima(testo, seguente));
    if (m < modello.size() && (modello[m] == U'_' || modello[m] == lettera)) {
      ++m;
      t = seguente;
    } else if (dopo_percento != 0) {
      m = dopo_percento;
      prossima(testo, ripresa);
      t = ripresa;
    } else {
      return false;
    }
  }
  while (m < modello.size() && modello[m] == U'%') ++m;
  return m == modello.size();
}

}  // namespace lokera
