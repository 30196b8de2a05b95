// What a user typed into a cell, back into a value.
#include <QRegularExpression>

#include "forms/formato.h"
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
