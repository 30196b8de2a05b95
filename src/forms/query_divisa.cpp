#include "forms/query_divisa.h"

#include <algorithm>
#include <array>
#include <vector>

#include "store/lessico.h"

namespace lokera {

using namespace Qt::StringLiterals;

namespace {

using Lessemi = std::vector<Lessema>;
using Tratto = std::pair<Lessemi::const_iterator, Lessemi::const_iterator>;

constexpr std::array indivisibili{u"distinct", u"group",     u"having", u"union", u"except",
                                  u"limit",    u"intersect", u"top",    u"desc"};
constexpr std::array dopo_tabella{u"join",    u"inner", u"left",  u"outer", u"cross",
                                  u"natural", u"on",    u"where", u"order"};

bool una_di(const Lessema& l, const auto& parole) {
  return std::ranges::any_of(parole, [&](const char16_t* p) { return l.e_parola(p); });
}

bool e_nome(const Lessema& l) {
  return l.tipo == TipoLessema::nome || l.tipo == TipoLessema::parola;
}

QString testo(Tratto t) {
  QString tutto;
  for (auto i = t.first; i != t.second; ++i) tutto += i->testo;
  return tutto.trimmed();
}

/// The first place from here on, outside of parentheses, that satisfies.
template <class F>
Lessemi::const_iterator cerca(Tratto t, F prova) {
  int aperte = 0;
  return std::find_if(t.first, t.second, [&](const Lessema& l) {
    if (l.e_segno(u'(')) ++aperte;
    if (l.e_segno(u')')) --aperte;
    return aperte == 0 && prova(l);
  });
}

Lessemi::const_iterator cerca_parola(Tratto t, QStringView parola) {
  return cerca(t, [&](const Lessema& l) { return l.e_parola(parola); });
}

/// What the query calls the first of its tables; empty when that isn't a table.
QString prima_tabella(Tratto da) {
  Lessemi utili;
  std::copy_if(da.first, da.second, std::back_inserter(utili), [](const Lessema& l) {
    return l.tipo != TipoLessema::spazio && !l.e_segno(u'(') && !l.e_parola(u"as");
  });
  if (utili.empty() || !e_nome(utili[0]) || utili[0].e_parola(u"select")) return {};
  if (utili.size() > 1 && utili[1].e_segno(u'.')) return {};
  const bool altro_nome = utili.size() > 1 && e_nome(utili[1]) && !una_di(utili[1], dopo_tabella);
  return utili[altro_nome ? 1 : 0].testo.toString();
}

/// A name that stands for a value of the query, not for a column: a condition can't be put on it.
bool nome_calcolato(Tratto colonne, const QString& nome) {
  const Lessema* prima = nullptr;
  for (auto i = colonne.first; i != colonne.second; ++i) {
    if (i->tipo == TipoLessema::spazio) continue;
    if (prima && prima->e_parola(u"as") && nome.contains(i->testo, Qt::CaseInsensitive)) return true;
    prima = &*i;
  }
  return false;
}

/// What the query is sorted by, in its words; a failure is a list with an empty text.
QStringList ordinamento(Tratto t, Tratto colonne) {
  QStringList tutti;
  while (t.first != t.second) {
    const auto fine = cerca(t, [](const Lessema& l) { return l.e_segno(u','); });
    const auto primo =
        std::find_if(t.first, fine, [](const Lessema& l) { return l.tipo != TipoLessema::spazio; });
    const bool colonna = primo != fine && e_nome(*primo);
    Lessemi voce;
    std::copy_if(primo, fine, std::back_inserter(voce), [](const Lessema& l) { return !l.e_parola(u"asc"); });
    const QString nome = testo({voce.cbegin(), voce.cend()});
    tutti += colonna && !nome_calcolato(colonne, nome) ? nome : QString();
    t.first = fine == t.second ? fine : fine + 1;
  }
  return tutti;
}

}  // namespace

std::optional<QueryDivisa> QueryDivisa::dividi(const QString& sql) {
  const Lessemi lessemi = scomponi(sql);
  const Tratto tutto{lessemi.cbegin(), lessemi.cend()};
  const bool intera = std::ranges::any_of(
      lessemi, [](const Lessema& l) { return una_di(l, indivisibili) || l.e_segno(u';'); });
  const auto da = cerca_parola(tutto, u"from");
  if (intera || da == lessemi.cend()) return {};
  const auto ordine = cerca_parola({da, lessemi.cend()}, u"order");
  const auto per = cerca_parola({ordine, lessemi.cend()}, u"by");
  const auto dove = cerca_parola({da, ordine}, u"where");
  const Tratto colonne{lessemi.cbegin(), da};
  const QString tabella = prima_tabella({da + 1, dove});
  QueryDivisa q;
  q.colonne_ = testo(colonne);
  q.tabelle_ = testo({da, dove});
  if (dove != ordine) q.dove_ = testo({dove + 1, ordine});
  if (per != lessemi.cend()) q.posto_ = ordinamento({per + 1, lessemi.cend()}, colonne);
  if (tabella.isEmpty() || q.posto_.contains(QString())) return {};
  q.posto_ += tabella + u".rowid"_s;
  return q;
}

QString QueryDivisa::con(const QString& condizione) const {
  QString sql = colonne_;
  for (qsizetype i = 0; i < posto_.size(); ++i) sql += u", %1 as posto_%2"_s.arg(posto_[i]).arg(i);
  sql += u' ' + tabelle_;
  QStringList condizioni;
  if (!dove_.isEmpty()) condizioni += u'(' + dove_ + u')';
  if (!condizione.isEmpty()) condizioni += condizione;
  if (!condizioni.isEmpty()) sql += u" where "_s + condizioni.join(u" and ");
  return sql + u" order by "_s + posto_.join(u", ");
}

QString QueryDivisa::dal(const QVariantList& posto) const {
  // Nulls come before all values. The first condition says nothing new, but an index begins with it.
  QString condizione = posto_.last() + u" >= ?"_s;
  for (qsizetype i = posto_.size() - 2; i >= 0; --i) {
    const QString dopo = posto[i].isNull() ? u"is not null"_s : u"> ?"_s;
    const QString uguale = posto[i].isNull() ? u"is null"_s : u"= ?"_s;
    condizione = u"(%1 %2 or (%1 %3 and %4))"_s.arg(posto_[i], dopo, uguale, condizione);
  }
  if (!posto[0].isNull()) condizione = posto_[0] + u" >= ? and "_s + condizione;
  return con(condizione);
}

QVariantList QueryDivisa::valori(const QVariantList& posto) {
  QVariantList tutti;
  for (qsizetype i = 0; i < posto.size(); ++i) {
    if (posto[i].isNull()) continue;
    tutti << posto[i];
    if (i < posto.size() - 1) tutti << posto[i];
    if (i == 0) tutti << posto[i];
  }
  return tutti;
}

}  // namespace lokera
