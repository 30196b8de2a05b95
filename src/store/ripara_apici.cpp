#include "store/ripara_apici.h"

#include <QRegularExpression>
#include <QStringList>

namespace lokera {

using namespace Qt::StringLiterals;

namespace {

using Stato = StatoPezzo;

bool confronto_semplice(QStringView t) {
  return t.endsWith(u'=') || t.endsWith(u'>') || t.endsWith(u'<');
}

QStringView destra(QStringView t) {
  while (!t.isEmpty() && t.back().isSpace()) t.chop(1);
  return t;
}

/// Without the parentheses that the piece closes first.
QStringView dopo_chiuse(QStringView t) {
  while (t.startsWith(u')')) t = t.sliced(1);
  return t.trimmed();
}

bool congiunzione(QStringView t) {
  return t.startsWith(u"and", Qt::CaseInsensitive) || t.startsWith(u"or", Qt::CaseInsensitive) ||
         t.startsWith(u"where", Qt::CaseInsensitive);
}

void confronto(PezzoSql& p, QStringView t, bool modifica) {
  p.operatore = u"="_s;
  const QStringView resto = dopo_chiuse(t);
  p.stato = resto.size() < 5 || congiunzione(resto) || modifica ? Stato::fuori : Stato::testo;
}

void lista(PezzoSql& p, QStringView t) {
  const QStringView prima = t.chopped(1).trimmed();
  p.stato = Stato::testo;
  if (prima.size() > 2 && prima.endsWith(u" in", Qt::CaseInsensitive)) {
    p.stato = Stato::apre_lista;
    p.operatore = u"IN"_s;
  }
  const QStringView resto = dopo_chiuse(prima);
  if (resto.size() < 5 || !congiunzione(resto)) p.stato = Stato::testo;
}

void classifica_pezzo(PezzoSql& p, bool modifica) {
  const QStringView t = QStringView(p.testo).trimmed();
  p.stato = Stato::testo;
  if (t.size() < 2) {
    if (t == u","_s) p.stato = Stato::virgola;
  } else if (confronto_semplice(t)) {
    confronto(p, t, modifica);
  } else if (t.endsWith(u'(')) {
    lista(p, t);
  } else if (t.size() >= 6 && t.endsWith(u" like", Qt::CaseInsensitive)) {
    p.stato = Stato::fuori;
    p.operatore = u"LIKE"_s;
  }
}

void classifica_testa(PezzoSql& p) {
  const QStringView t = destra(p.testo);
  p.stato = Stato::fuori;
  if (t.endsWith(u'(')) {
    p.stato = Stato::apre_lista;
    p.operatore = u"IN"_s;
  } else if (confronto_semplice(t)) {
    p.operatore = u"="_s;
  } else if (t.endsWith(u'e', Qt::CaseInsensitive)) {
    p.operatore = u"LIKE"_s;
  }
}

/// What comes before the operator, an optional "not", the operator.
const QRegularExpression& forma_confronto() {
  static const QRegularExpression forma(
      u"^(.*?)(?:\\s+(not))?\\s*(<>|<=|>=|=|<|>|(?<=[\\s\\])])like|(?<=[\\s\\])])in\\s*\\()\\s*$"_s,
      QRegularExpression::CaseInsensitiveOption | QRegularExpression::DotMatchesEverythingOption);
  return forma;
}

bool apostrofo_doppio(const std::vector<PezzoSql>& pezzi, size_t i, bool in_lista) {
  const bool testo = pezzi[i].stato == Stato::testo || (pezzi[i].stato == Stato::virgola && !in_lista);
  return testo && pezzi[i - 1].stato == Stato::testo;
}

}  // namespace

std::vector<PezzoSql> classifica(const QString& statement) {
  std::vector<PezzoSql> pezzi;
  for (const QString& p : statement.trimmed().split(u'\'')) pezzi.push_back({p, Stato::fuori, {}});
  const bool modifica = statement.trimmed().startsWith(u"update"_s, Qt::CaseInsensitive);
  for (size_t i = 1; i + 1 < pezzi.size(); ++i) classifica_pezzo(pezzi[i], modifica);
  if (pezzi.size() > 1) classifica_testa(pezzi.front());
  return pezzi;
}

QString normalizza(const PezzoSql& pezzo, const std::function<QString(const QString&)>& prima) {
  const bool apre = pezzo.stato == Stato::fuori || pezzo.stato == Stato::apre_lista;
  if (!apre || pezzo.operatore.isEmpty()) return pezzo.testo;
  const auto forma = forma_confronto().match(pezzo.testo);
  if (!forma.hasMatch()) return pezzo.testo;
  QString testa = forma.captured(1);
  if (prima) testa = prima(testa);
  const QString negato = forma.captured(2).isEmpty() ? QString() : u" "_s + forma.captured(2);
  const QString segno = forma.captured(3);
  return testa + negato + u' ' + (segno.endsWith(u'(') ? u"in ("_s : segno + u' ');
}

QString ricomponi(const std::vector<PezzoSql>& pezzi, const QString& nel_testo) {
  QString esito = pezzi.front().testo;
  bool in_lista = pezzi.front().stato == Stato::apre_lista;
  for (size_t i = 1; i < pezzi.size(); ++i) {
    if (pezzi[i].stato == Stato::fuori) in_lista = false;
    if (pezzi[i].stato == Stato::apre_lista) in_lista = true;
    esito += apostrofo_doppio(pezzi, i, in_lista) ? nel_testo : u"'"_s;
    esito += pezzi[i].testo;
  }
  return esito;
}

QString ripara_apici(const QString& statement) {
  QString s = statement.trimmed();
  if (!s.contains(u'\'')) return s;
  std::vector<PezzoSql> pezzi = classifica(s);
  for (PezzoSql& p : pezzi) p.testo = normalizza(p);
  return ricomponi(pezzi);
}

}  // namespace lokera
