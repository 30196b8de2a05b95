#include "forms/formato.h"

#include <algorithm>
#include <array>

#include "store/date_jet.h"

namespace lokera {

namespace {

/// A moment in parts, read without a detour through QDateTime: long lists have a million of them.
struct Istante {
  int anno = 0, mese = 0, giorno = 0, ore = 0, minuti = 0, secondi = 0;
  bool ora_sola() const { return anno == 1899 && mese == 12 && giorno == 30; }
  bool mezzanotte() const { return ore == 0 && minuti == 0 && secondi == 0; }
};

int cifre(const char* testo, int quante) {
  int n = 0;
  for (int i = 0; i < quante; ++i) {
    if (testo[i] < '0' || testo[i] > '9') return -1;
    n = n * 10 + (testo[i] - '0');
  }
  return n;
}

/// Reads "yyyy-MM-dd HH:mm:ss".
std::optional<Istante> istante(QByteArrayView grezzo) {
  if (grezzo.size() < 19) return {};
  const char* t = grezzo.data();
  const Istante i{cifre(t, 4),      cifre(t + 5, 2),  cifre(t + 8, 2),
                  cifre(t + 11, 2), cifre(t + 14, 2), cifre(t + 17, 2)};
  if (std::min({i.anno, i.mese, i.giorno, i.ore, i.minuti, i.secondi}) < 0) return {};
  return i;
}

void scrivi(QByteArray& a, int n, int larghezza) {
  std::array<char, 12> testo{};
  size_t inizio = testo.size();
  do {
    testo[--inizio] = static_cast<char>('0' + n % 10);
    n /= 10;
    --larghezza;
  } while (n > 0 || larghezza > 0);
  a.append(testo.data() + inizio, static_cast<qsizetype>(testo.size() - inizio));
}

void scrivi_data(QByteArray& a, const Istante& i) {
  scrivi(a, i.giorno, 2);
  a += '/';
  scrivi(a, i.mese, 2);
  a += '/';
  scrivi(a, i.anno, 4);
}

void scrivi_ora(QByteArray& a, const Istante& i, bool secondi) {
  scrivi(a, i.ore, 2);
  a += '.';
  scrivi(a, i.minuti, 2);
  if (!secondi) return;
  a += '.';
  scrivi(a, i.secondi, 2);
}

void scrivi(QByteArray& a, const Istante& i) {
  if (i.ora_sola()) return scrivi_ora(a, i, i.secondi != 0);
  scrivi_data(a, i);
  if (i.mezzanotte()) return;
  a += ' ';
  scrivi_ora(a, i, true);
}

/// The number that a letter of a date format stands for; -1 when the letter stands for itself.
int parte(const Istante& i, char lettera, bool dopo_le_ore) {
  switch (lettera) {
    case 'd':
      return i.giorno;
    case 'm':
      return dopo_le_ore ? i.minuti : i.mese;
    case 'y':
      return i.anno;
    case 'h':
      return i.ore;
    case 'n':
      return i.minuti;
    case 's':
      return i.secondi;
    default:
      return -1;
  }
}

void scrivi(QByteArray& a, const Istante& i, QByteArrayView formato) {
  bool dopo_le_ore = false;
  for (qsizetype p = 0; p < formato.size();) {
    const char lettera = static_cast<char>(formato[p] | 0x20);
    qsizetype fine = p + 1;
    const int n = parte(i, lettera, dopo_le_ore);
    if (n < 0) {
      a += formato[p];
    } else {
      while (fine < formato.size() && (formato[fine] | 0x20) == lettera) ++fine;
      const int larghezza = static_cast<int>(fine - p);
      lettera == 'y' && larghezza < 4 ? scrivi(a, n % 100, 2) : scrivi(a, n, larghezza);
      dopo_le_ore = lettera == 'h';
    }
    p = fine;
  }
}

/// What a number format asks for.
struct FormatoNumero {
  qsizetype interi = 0;     ///< least digits before the comma
  qsizetype decimali = 0;   ///< most digits after it
  qsizetype richiesti = 0;  ///< of those, the ones that stand even when they are 0
  bool migliaia = false;

  explicit FormatoNumero(QByteArrayView formato) {
    const qsizetype punto = formato.indexOf('.');
    const QByteArrayView prima = punto < 0 ? formato : formato.first(punto);
    const QByteArrayView dopo = punto < 0 ? QByteArrayView() : formato.sliced(punto + 1);
    interi = std::ranges::count(prima, '0');
    migliaia = prima.contains(',');
    richiesti = std::ranges::count(dopo, '0');
    decimali = richiesti + std::ranges::count(dopo, '#');
  }
};

void metti_punti(QByteArray& interi) {
  for (qsizetype p = interi.size() - 3; p > 0; p -= 3) interi.insert(p, '.');
}

void scrivi_numero(QByteArray& a, double valore, QByteArrayView formato) {
  const FormatoNumero f(formato);
  QByteArray testo = QByteArray::number(std::abs(valore), 'f', static_cast<int>(f.decimali));
  const qsizetype punto = testo.indexOf('.');
  QByteArray interi = punto < 0 ? testo : testo.first(punto);
  QByteArray decimali = punto < 0 ? QByteArray() : testo.sliced(punto + 1);
  while (decimali.size() > f.richiesti && decimali.endsWith('0')) decimali.chop(1);
  if (interi == "0") interi.clear();
  interi = interi.rightJustified(f.interi, '0');
  if (f.migliaia) metti_punti(interi);
  if (valore < 0) a += '-';
  a += interi;
  if (!decimali.isEmpty()) a.append(',').append(decimali);
}

/// The decimal point of the store's text as a comma.
void scrivi_numero(QByteArray& a, QByteArrayView grezzo) {
  const qsizetype inizio = a.size();
  a += grezzo;
  std::replace(a.begin() + inizio, a.end(), '.', ',');
}

void scrivi_testo(QByteArray& a, QByteArrayView grezzo) {
  const qsizetype inizio = a.size();
  a += grezzo;
  std::replace(a.begin() + inizio, a.end(), '\t', ' ');
}

}  // namespace

void formatta(QByteArray& a, QByteArrayView grezzo, TipoCampo tipo, QByteArrayView formato) {
  if (grezzo.isEmpty()) return;
  if (tipo == TipoCampo::data) {
    const auto i = istante(grezzo);
    if (!i) return scrivi_testo(a, grezzo);
    return formato.isEmpty() ? scrivi(a, *i) : scrivi(a, *i, formato);
  }
  if (tipo == TipoCampo::booleano) {
    a += grezzo == "0" ? "Falso" : "Vero";
    return;
  }
  if (!e_numero(tipo)) return scrivi_testo(a, grezzo);
  bool numero = false;
  const double valore = formato.isEmpty() ? 0 : grezzo.toDouble(&numero);
  numero ? scrivi_numero(a, valore, formato) : scrivi_numero(a, grezzo);
}

QString formatta(const QVariant& valore, QStringView formato) {
  if (!valore.isValid() || valore.isNull()) return {};
  QByteArray a;
  const QByteArray f = formato.toUtf8();
  switch (valore.typeId()) {
    case QMetaType::QDateTime:
      formatta(a, data_memorizzata(valore.toDateTime()), TipoCampo::data, f);
      break;
    case QMetaType::Bool:
      formatta(a, valore.toBool() ? "1" : "0", TipoCampo::booleano);
      break;
    case QMetaType::Double:
      formatta(a, QByteArray::number(valore.toDouble(), 'g', QLocale::FloatingPointShortest),
               TipoCampo::doppio, f);
      break;
    case QMetaType::QString:
      return valore.toString();
    default:
      formatta(a, valore.toString().toUtf8(), TipoCampo::intero, f);
  }
  return QString::fromUtf8(a);
}

}  // namespace lokera
