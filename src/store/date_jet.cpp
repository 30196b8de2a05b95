#include "store/date_jet.h"

#include <array>
#include <vector>

#include "platform/momento.h"

namespace lokera {

QDate giorno_zero() {
  return {1899, 12, 30};
}

QDateTime ora(QTime t) {
  return momento(giorno_zero(), t);
}

int minuti_tra(QTime a, QTime b) {
  return (b.hour() * 60 + b.minute()) - (a.hour() * 60 + a.minute());
}

namespace {

constexpr bool cifra(char c) {
  return c >= '0' && c <= '9';
}

char* scrivi_numero(char* fine, int numero, int cifre) {
  for (int i = cifre - 1; i >= 0; --i, numero /= 10) fine[i] = static_cast<char>('0' + numero % 10);
  return fine + cifre;
}

/// The digits of `t` from `da` on; -1 when one of them is something else.
int numero_fisso(QByteArrayView t, qsizetype da, qsizetype cifre) {
  int n = 0;
  for (qsizetype i = da; i < da + cifre; ++i) {
    if (!cifra(t[i])) return -1;
    n = n * 10 + (t[i] - '0');
  }
  return n;
}

/// Numbers of a written date or time with the signs between them.
struct Pezzi {
  std::vector<int> numeri;
  std::vector<qsizetype> cifre;
  std::vector<char16_t> segni;
};

std::optional<Pezzi> spezza(QStringView t) {
  Pezzi p;
  qsizetype i = 0;
  while (i < t.size()) {
    const qsizetype inizio = i;
    int n = 0;
    for (; i < t.size() && i - inizio < 5 && t[i] >= u'0' && t[i] <= u'9'; ++i)
      n = n * 10 + (t[i].unicode() - u'0');
    if (i == inizio || i - inizio > 4) return std::nullopt;
    p.numeri.push_back(n);
    p.cifre.push_back(i - inizio);
    if (i == t.size()) return p;
    p.segni.push_back(t[i++].unicode());
  }
  return std::nullopt;  // ends in a sign, or is empty
}

bool segni_tutti(const Pezzi& p, char16_t segno) {
  for (const char16_t s : p.segni) {
    if (s != segno) return false;
  }
  return !p.segni.empty();
}

/// Two digits stand for the years 1930 to 2029.
int anno_intero(int anno, qsizetype cifre) {
  if (cifre > 2) return anno;
  return anno < 30 ? 2000 + anno : 1900 + anno;
}

std::optional<QDate> leggi_giorno(const Pezzi& p, OrdineData ordine) {
  if (p.numeri.size() != 3) return std::nullopt;
  if (!segni_tutti(p, u'/') && !segni_tutti(p, u'-') && !segni_tutti(p, u'.')) return std::nullopt;
  const auto& n = p.numeri;
  if (p.cifre[0] == 4) {
    const QDate iso(n[0], n[1], n[2]);
    return iso.isValid() ? std::optional(iso) : std::nullopt;
  }
  const int anno = anno_intero(n[2], p.cifre[2]);
  const QDate giorno_prima(anno, n[1], n[0]);
  const QDate mese_prima(anno, n[0], n[1]);
  const bool inverti = ordine == OrdineData::mese_giorno;
  for (const QDate& d :
       inverti ? std::array{mese_prima, giorno_prima} : std::array{giorno_prima, mese_prima}) {
    if (d.isValid()) return d;
  }
  return std::nullopt;
}

std::optional<QTime> leggi_ora(const Pezzi& p) {
  if (p.numeri.size() < 2 || p.numeri.size() > 3) return std::nullopt;
  if (!segni_tutti(p, u':') && !segni_tutti(p, u'.')) return std::nullopt;
  const QTime t(p.numeri[0], p.numeri[1], p.numeri.size() == 3 ? p.numeri[2] : 0);
  return t.isValid() ? std::optional(t) : std::nullopt;
}

/// "10.2.2008" is a day, "10.20.30" a time.
bool sembra_giorno(const Pezzi& p) {
  const bool punti = segni_tutti(p, u'.');
  return p.segni.size() == 2 && (!punti || p.cifre[2] == 4) && !segni_tutti(p, u':');
}

}  // namespace

std::optional<QDateTime> leggi_data(QStringView testo, OrdineData ordine) {
  const QStringView t = testo.trimmed();
  qsizetype taglio = t.indexOf(u' ');
  if (taglio < 0) taglio = t.indexOf(u'T');
  const auto prima = spezza(taglio < 0 ? t : t.first(taglio));
  if (!prima) return std::nullopt;
  if (taglio < 0 && !sembra_giorno(*prima)) {
    const auto orario = leggi_ora(*prima);
    return orario ? std::optional(ora(*orario)) : std::nullopt;
  }
  const auto giorno = leggi_giorno(*prima, ordine);
  if (!giorno) return std::nullopt;
  if (taglio < 0) return momento(*giorno);
  const auto seconda = spezza(t.sliced(taglio + 1).trimmed());
  const auto orario = seconda ? leggi_ora(*seconda) : std::nullopt;
  return orario ? std::optional(momento(*giorno, *orario)) : std::nullopt;
}

QByteArray data_memorizzata(const QDateTime& data) {
  const QDate d = data.date();
  const QTime t = data.time();
  QByteArray testo(19, '-');
  char* p = scrivi_numero(testo.data(), d.year(), 4) + 1;
  p = scrivi_numero(p, d.month(), 2) + 1;
  p = scrivi_numero(p, d.day(), 2);
  *p++ = ' ';
  p = scrivi_numero(p, t.hour(), 2);
  *p++ = ':';
  p = scrivi_numero(p, t.minute(), 2);
  *p++ = ':';
  scrivi_numero(p, t.second(), 2);
  return testo;
}

QDateTime da_data_memorizzata(QByteArrayView t) {
  if (t.size() != 19 || t[4] != '-' || t[7] != '-' || t[10] != ' ' || t[13] != ':' || t[16] != ':') return {};
  const QDate d(numero_fisso(t, 0, 4), numero_fisso(t, 5, 2), numero_fisso(t, 8, 2));
  const QTime o(numero_fisso(t, 11, 2), numero_fisso(t, 14, 2), numero_fisso(t, 17, 2));
  return momento(d, o);
}

QString testo_italiano(const QDateTime& data) {
  if (data.date() == giorno_zero()) return data.time().toString(u"HH:mm:ss");
  const QString giorno = data.date().toString(u"dd/MM/yyyy");
  return data.time() == QTime(0, 0) ? giorno : giorno + data.time().toString(u" HH:mm:ss");
}

}  // namespace lokera
