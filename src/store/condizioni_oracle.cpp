#include <QLocale>
#include <QRegularExpression>

#include "store/converti_oracle.h"
#include "store/date_jet.h"
#include "store/lessico.h"
#include "store/ripara_apici.h"

namespace lokera {

using namespace Qt::StringLiterals;

namespace {

/// The column stands last before the operator.
QString colonna_maiuscola(const QString& prima) {
  static const QRegularExpression colonna(u"([^\\s(,]+)$"_s);
  const auto trovata = colonna.match(prima);
  if (!trovata.hasMatch()) return prima;
  return prima.first(trovata.capturedStart()) + u"upper("_s + trovata.captured(1) + u')';
}

QString data_oracle(const Lessema& l) {
  const QStringView dentro = l.testo.sliced(1).chopped(1);
  const auto data = leggi_data(dentro, OrdineData::mese_giorno);
  const QString testo = data ? QLocale::c().toString(data->date(), u"dd/MMM/yyyy") : dentro.toString();
  return u'\'' + testo + u'\'';
}

QString date_oracle(const QString& s) {
  QString esito;
  for (const Lessema& l : scomponi(s)) {
    if (l.tipo == TipoLessema::data) {
      esito += data_oracle(l);
    } else {
      esito += l.testo;
    }
  }
  return esito;
}

QString funzioni(QString s) {
  s.replace(QRegularExpression(u"\\byear\\s*\\(([^()]*)\\)"_s), u"to_char(\\1, 'YYYY')"_s);
  s.replace(QRegularExpression(u"\\bmonth\\s*\\(([^()]*)\\)"_s), u"to_char(\\1, 'MM')"_s);
  s.replace(QRegularExpression(u"\\bmid\\s*\\("_s), u"SUBSTR("_s);
  s.replace(QRegularExpression(u"\\bucase\\s*\\("_s), u"upper("_s);
  return s;
}

/// Outside of literals only.
QString fuori_dai_testi(const QString& s) {
  QString esito;
  QString fuori;
  for (const Lessema& l : scomponi(s)) {
    if (l.tipo != TipoLessema::testo) {
      fuori += l.testo;
      continue;
    }
    esito += funzioni(fuori) + l.testo.toString();
    fuori.clear();
  }
  return esito + funzioni(fuori);
}

}  // namespace

QString condizioni_oracle(const QString& statement) {
  std::vector<PezzoSql> pezzi = classifica(statement);
  for (PezzoSql& p : pezzi) p.testo = normalizza(p, colonna_maiuscola);
  return date_oracle(fuori_dai_testi(ricomponi(pezzi)));
}

}  // namespace lokera
