#include "store/converti_oracle.h"

#include <QRegularExpression>
#include <QStringList>

#include <optional>

namespace lokera {

using namespace Qt::StringLiterals;

namespace {

/// Where `parola`, blanks around it, stands outside of literals and parentheses, from `da` on; -1 when
/// nowhere.
qsizetype trova_parola(const QString& s, const QString& parola, qsizetype da = 0) {
  int profondita = 0;
  bool testo = false;
  for (qsizetype i = 0; i < s.size(); ++i) {
    if (s[i] == u'\'') testo = !testo;
    if (testo) continue;
    if (s[i] == u'(') ++profondita;
    if (s[i] == u')') --profondita;
    if (i < da || profondita != 0 || !QStringView(s).sliced(i).startsWith(parola)) continue;
    const bool inizio = i == 0 || s[i - 1].isSpace() || s[i - 1] == u')';
    const qsizetype fine = i + parola.size();
    if (inizio && (fine == s.size() || s[fine].isSpace() || s[fine] == u'(')) return i;
  }
  return -1;
}

struct Parti {
  QString testa;
  QString tabelle;
  QString condizione;
  QString coda;  ///< order by, group by
};

Parti dividi(const QString& s, qsizetype from) {
  Parti p;
  p.testa = s.first(from);
  qsizetype coda = s.size();
  for (const QString& parola : {u"order by"_s, u"group by"_s}) {
    const qsizetype qui = trova_parola(s, parola, from);
    if (qui >= 0 && qui < coda) coda = qui;
  }
  p.coda = s.sliced(coda).trimmed();
  const QString corpo = s.sliced(from + 4, coda - from - 4);
  const qsizetype where = trova_parola(corpo, u"where"_s);
  p.tabelle = (where < 0 ? corpo : corpo.first(where)).trimmed();
  p.condizione = where < 0 ? QString() : corpo.sliced(where + 5).trimmed();
  return p;
}

/// Without the parentheses around the whole text.
QString senza_parentesi(QString s) {
  for (s = s.trimmed(); s.startsWith(u'(') && s.endsWith(u')'); s = s.sliced(1).chopped(1).trimmed()) {
    int profondita = 0;
    for (qsizetype i = 0; i + 1 < s.size(); ++i) {
      if (s[i] == u'(') ++profondita;
      if (s[i] == u')' && --profondita == 0) return s;
    }
  }
  return s;
}

enum class Giunzione { interna, sinistra, destra };

/// `a = b` with the mark of the side that may be missing.
std::optional<QString> condizione_giunzione(const QString& on, Giunzione tipo) {
  QStringList uguaglianze;
  for (const QString& parte : senza_parentesi(on).split(QRegularExpression(u"\\sand\\s"_s))) {
    const qsizetype uguale = parte.indexOf(u'=');
    if (uguale < 0) return std::nullopt;
    QString sinistra = parte.first(uguale).trimmed();
    QString destra = parte.sliced(uguale + 1).trimmed();
    if (tipo == Giunzione::sinistra) destra += u" (+) "_s;
    if (tipo == Giunzione::destra) sinistra += u" (+) "_s;
    uguaglianze += sinistra + u" = "_s + destra;
  }
  return uguaglianze.join(u" AND "_s);
}

struct Giunzioni {
  QStringList tabelle;
  QStringList condizioni;
};

/// Takes the joins of a from clause apart, the last one first: what is left of it may be joins again.
QString sciogli(const QString& tabelle, Giunzioni& g) {
  const QString t = senza_parentesi(tabelle);
  qsizetype ultimo = -1;
  for (qsizetype i = trova_parola(t, u"join"_s); i >= 0; i = trova_parola(t, u"join"_s, i + 1)) ultimo = i;
  if (ultimo < 0) {
    g.tabelle += t;
    return {};
  }
  static const QRegularExpression genere(u"\\s*\\b(inner|left|right)(\\s+outer)?\\s*$"_s);
  const auto trovato = genere.match(t.first(ultimo));
  const qsizetype on = trova_parola(t, u"on"_s, ultimo);
  if (!trovato.hasMatch() || trovato.capturedStart() == 0) return u"Errore operatore JOIN"_s;
  if (on < 0) return u"Errore operatore ON in JOIN"_s;
  const QString parola = trovato.captured(1);
  const Giunzione tipo = parola == "left"_L1    ? Giunzione::sinistra
                         : parola == "right"_L1 ? Giunzione::destra
                                                : Giunzione::interna;
  const auto condizione = condizione_giunzione(t.sliced(on + 2), tipo);
  if (!condizione) return u"Errore operatore ON in JOIN"_s;
  QString errore = sciogli(t.first(trovato.capturedStart()), g);
  if (errore.isEmpty()) errore = sciogli(t.sliced(ultimo + 4, on - ultimo - 4), g);
  g.condizioni += *condizione;
  return errore;
}

/// Converts each parenthesised select of a condition.
QString sotto_select(const QString& condizione, QString& errore) {
  static const QRegularExpression apertura(u"\\(\\s*select\\s"_s);
  QString esito = condizione;
  for (qsizetype da = esito.indexOf(apertura); da >= 0; da = esito.indexOf(apertura, da + 1)) {
    int profondita = 0;
    qsizetype fine = da;
    for (; fine < esito.size(); ++fine) {
      if (esito[fine] == u'(') ++profondita;
      if (esito[fine] == u')' && --profondita == 0) break;
    }
    if (fine == esito.size()) break;
    const QString interna = struttura_oracle(esito.sliced(da + 1, fine - da - 1), errore);
    esito = esito.first(da + 1) + interna + esito.sliced(fine);
    da += interna.size() + 1;
  }
  return esito;
}

QString togli_top(QString& testa) {
  static const QRegularExpression top(u"\\btop\\s+(\\d+)\\s+"_s);
  const auto trovato = top.match(testa);
  if (!trovato.hasMatch()) return {};
  testa.remove(trovato.capturedStart(), trovato.capturedLength());
  return u"ROWNUM < %1"_s.arg(trovato.captured(1).toLongLong() + 1);
}

QString unisci_condizioni(const Giunzioni& g, const QString& where, const QString& limite) {
  QStringList condizioni = g.condizioni;
  const bool alternative = trova_parola(where, u"or"_s) >= 0 && (!condizioni.isEmpty() || !limite.isEmpty());
  if (!where.isEmpty()) condizioni.prepend(alternative ? u'(' + where + u')' : where);
  if (!limite.isEmpty()) condizioni += limite;
  return condizioni.join(u" AND "_s);
}

}  // namespace

QString struttura_oracle(const QString& statement, QString& errore) {
  QString s = statement.trimmed();
  const qsizetype from = trova_parola(s, u"from"_s);
  if ((!s.startsWith("select "_L1) && !s.startsWith("delete "_L1)) || from < 0) return s;
  Parti p = dividi(s, from);
  const QString limite = togli_top(p.testa);
  Giunzioni g;
  const QString guasto = sciogli(p.tabelle, g);
  if (!guasto.isEmpty()) {
    errore = guasto;
    return s;
  }
  const QString condizione = unisci_condizioni(g, sotto_select(p.condizione, errore), limite);
  QString esito = p.testa.trimmed() + u" from "_s + g.tabelle.join(u", "_s);
  if (!condizione.isEmpty()) esito += u" WHERE "_s + condizione;
  if (!p.coda.isEmpty()) esito += u' ' + p.coda;
  return esito;
}

}  // namespace lokera
