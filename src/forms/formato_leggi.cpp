// What a user typed into a cell, back into a value.
#include <QRegularExpression>

#include "forms/formato.h"
#include "platform/momento.h"
#include "store/date_jet.h"

namespace lokera {

using namespace Qt::StringLiterals;

QDateTime leggi_data_digitata(QStringView testo) {
  bool sola_ora = false;
  const int ore = testo.trimmed().toInt(&sola_ora);
  if (!sola_ora) return leggi_data(testo, OrdineData::giorno_mese).value_or(QDateTime());
  const QTime t(ore, 0);
  return t.isValid() ? ora(t) : QDateTime();
}

QDateTime leggi_data_mostrata(QByteArrayView testo) {
  constexpr qsizetype data = 10, con_minuti = 16, con_secondi = 19;
  const QByteArrayView forma = "00/00/0000 00.00.00";
  if (testo.size() != data && testo.size() != con_minuti && testo.size() != con_secondi) return {};
  for (qsizetype i = 0; i < testo.size(); ++i) {
    const bool cifra = testo[i] >= '0' && testo[i] <= '9';
    if (forma[i] == '0' ? !cifra : testo[i] != forma[i]) return {};
  }
  const auto due = [&](qsizetype i) {
    return i < testo.size() ? (testo[i] - '0') * 10 + (testo[i + 1] - '0') : 0;
  };
  return momento(QDate(due(6) * 100 + due(8), due(3), due(0)), QTime(due(11), due(14), due(17)));
}

std::optional<double> leggi_numero(QStringView testo) {
  static const QRegularExpression migliaia(uR"(^[+-]?\d{1,3}(\.\d{3})+(,\d+)?$)"_s);
  static const QRegularExpression numero(uR"(^[+-]?(\d+([.,]\d*)?|[.,]\d+)$)"_s);
  bool intero = false;
  const int n = testo.toInt(&intero);
  if (intero) return n;
  QString t = testo.trimmed().toString();
  if (migliaia.match(t).hasMatch()) t.remove(u'.');
  if (!numero.match(t).hasMatch()) return {};
  return t.replace(u',', u'.').toDouble();
}

}  // namespace lokera
