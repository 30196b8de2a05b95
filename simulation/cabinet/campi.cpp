#include "simulation/cabinet/campi.h"

#include <QStringList>

#include <algorithm>

#include "platform/momento.h"

namespace lokera::simulazione {

namespace {

bool decimale(char c) {
  return c >= '0' && c <= '9';
}
bool esadecimale(char c) {
  return decimale(c) || (c >= 'A' && c <= 'F');
}

std::optional<int> numero(QByteArrayView cifre, int base) {
  bool buono = false;
  const int valore = cifre.toByteArray().toInt(&buono, base);
  if (!buono) return std::nullopt;
  return valore;
}

}  // namespace

std::optional<int> numero_decimale(QByteArrayView cifre) {
  if (!std::ranges::all_of(cifre, decimale)) return std::nullopt;
  return numero(cifre, 10);
}

std::optional<int> numero_esadecimale(QByteArrayView cifre) {
  if (!cifre_esadecimali(cifre)) return std::nullopt;
  return numero(cifre, 16);
}

std::optional<QDateTime> momento_da_cifre(QByteArrayView cifre) {
  if (cifre.size() != 14 || !std::ranges::all_of(cifre, decimale)) return std::nullopt;
  const auto campo = [cifre](qsizetype da, qsizetype quante) {
    return numero(cifre.sliced(da, quante), 10).value_or(-1);
  };
  const QDate giorno(campo(4, 4), campo(2, 2), campo(0, 2));
  const QTime ora(campo(8, 2), campo(10, 2), campo(12, 2));
  if (!giorno.isValid() || !ora.isValid()) return std::nullopt;
  return momento(giorno, ora);
}

QByteArray cifre_indirizzo(const QString& indirizzo) {
  QByteArray cifre;
  for (const QString& gruppo : indirizzo.split(u'.')) {
    cifre += gruppo.toLatin1().rightJustified(3, '0');
  }
  return cifre;
}

QString indirizzo_da_cifre(QByteArrayView cifre) {
  QStringList gruppi;
  if (cifre.size() != 12) return {};
  for (const int da : {0, 3, 6, 9}) {
    const auto gruppo = numero_decimale(cifre.sliced(da, 3));
    if (!gruppo || *gruppo > 255) return {};
    gruppi << QString::number(*gruppo);
  }
  return gruppi.join(u'.');
}

bool cifre_esadecimali(QByteArrayView testo) {
  return std::ranges::all_of(testo, esadecimale);
}

bool stampabile(QByteArrayView testo) {
  return std::ranges::all_of(testo, [](char c) { return c >= ' ' && c <= '~'; });
}

}  // namespace lokera::simulazione
