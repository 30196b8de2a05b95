#include <QDate>
#include <QTime>

#include <cmath>

#include "platform/momento.h"
#include "store/date_jet.h"
#include "store/recordset.h"

namespace lokera {

using namespace Qt::StringLiterals;

namespace {

constexpr int errore_tipo = 13;

Errore rifiuta(const Campo& campo, const QVariant& v, QLatin1StringView serve) {
  return {errore_tipo, campo.nome + u": \""_s + testo_valore(v) + u"\" non è "_s + serve};
}

bool tipo_intero(int tipo) {
  return tipo == QMetaType::Int || tipo == QMetaType::LongLong || tipo == QMetaType::UInt ||
         tipo == QMetaType::Short || tipo == QMetaType::UShort || tipo == QMetaType::ULongLong ||
         tipo == QMetaType::Long || tipo == QMetaType::ULong || tipo == QMetaType::UChar;
}

bool tipo_reale(int tipo) {
  return tipo == QMetaType::Double || tipo == QMetaType::Float;
}

std::optional<double> numero_scritto(QStringView testo) {
  bool valido = false;
  const QString t = testo.trimmed().toString();
  double n = t.toDouble(&valido);
  if (!valido) n = QString(t).replace(u',', u'.').toDouble(&valido);
  return valido && std::isfinite(n) ? std::optional(n) : std::nullopt;
}

std::optional<double> come_numero(const QVariant& v) {
  if (v.typeId() == QMetaType::Bool) return v.toBool() ? 1 : 0;
  if (tipo_intero(v.typeId()) || tipo_reale(v.typeId())) return v.toDouble();
  if (v.typeId() == QMetaType::QString) return numero_scritto(v.toString());
  return std::nullopt;
}

Esito<QVariant> in_intero(const Campo& campo, const QVariant& v) {
  if (tipo_intero(v.typeId())) {
    return QVariant(v.toLongLong());
  }
  const auto n = come_numero(v);
  if (!n || std::abs(*n) > 9.0e15) return rifiuta(campo, v, "un numero"_L1);
  return QVariant(static_cast<qlonglong>(std::nearbyint(*n)));  // halves to the even number
}

Esito<QVariant> in_reale(const Campo& campo, const QVariant& v) {
  const auto n = come_numero(v);
  if (!n) return rifiuta(campo, v, "un numero"_L1);
  return QVariant(*n);
}

Esito<QVariant> in_booleano(const Campo& campo, const QVariant& v) {
  if (v.typeId() == QMetaType::QString) {
    const QString t = u' ' + v.toString().trimmed().toLower() + u' ';
    if (u" true vero sì si yes "_s.contains(t)) {
      return QVariant(true);
    }
    if (u" false falso no "_s.contains(t)) {
      return QVariant(false);
    }
  }
  const auto n = come_numero(v);
  if (!n) return rifiuta(campo, v, "un valore vero o falso"_L1);
  return QVariant(*n != 0);
}

QDateTime come_data(const QVariant& v) {
  switch (v.typeId()) {
    case QMetaType::QDateTime:
      return v.toDateTime();
    case QMetaType::QDate:
      return momento(v.toDate());
    case QMetaType::QTime:
      return v.toTime().isValid() ? ora(v.toTime()) : QDateTime();
    case QMetaType::QString:
      return leggi_data(v.toString(), OrdineData::giorno_mese).value_or(QDateTime());
    default:
      return {};
  }
}

Esito<QVariant> in_data(const Campo& campo, const QVariant& v) {
  const bool numero = tipo_intero(v.typeId()) || tipo_reale(v.typeId());
  if (numero && std::abs(v.toDouble()) < 1.0e6) {  // days since day zero, with their fraction
    const QDate giorno = giorno_zero().addDays(static_cast<qint64>(std::floor(v.toDouble())));
    const double frazione = v.toDouble() - std::floor(v.toDouble());
    const auto tempo = QTime::fromMSecsSinceStartOfDay(static_cast<int>(frazione * 86'400'000));
    return QVariant(momento(giorno, tempo));
  }
  const QDateTime d = come_data(v);
  if (!d.date().isValid()) return rifiuta(campo, v, "una data"_L1);
  return QVariant(d);
}

}  // namespace

QString testo_valore(const QVariant& v) {
  switch (v.typeId()) {
    case QMetaType::UnknownType:
      return {};
    case QMetaType::Bool:
      return v.toBool() ? u"1"_s : u"0"_s;
    case QMetaType::QDateTime:
      return testo_italiano(v.toDateTime());
    case QMetaType::QDate:
      return testo_italiano(momento(v.toDate()));
    case QMetaType::QTime:
      return testo_italiano(ora(v.toTime()));
    default:
      return v.toString();
  }
}

Esito<QVariant> converti_valore(const Campo& campo, const QVariant& v) {
  if (!v.isValid()) {
    return v;
  }
  switch (campo.tipo) {
    case TipoCampo::intero_breve:
    case TipoCampo::intero:
      return in_intero(campo, v);
    case TipoCampo::doppio:
    case TipoCampo::numerico:
      return in_reale(campo, v);
    case TipoCampo::booleano:
      return in_booleano(campo, v);
    case TipoCampo::data:
      return in_data(campo, v);
    default:
      break;
  }
  return v.typeId() == QMetaType::QString ? v : QVariant(testo_valore(v));
}

}  // namespace lokera
