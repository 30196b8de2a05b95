#include "store/definizioni.h"

#include <QByteArray>

#include <algorithm>
#include <array>
#include <utility>

namespace lokera {

using namespace Qt::StringLiterals;

namespace {

/// One type of the store: its name in statements, the name under which the engine knows it (none is exactly
/// INTEGER, which would make a key the row's own number), what it takes and how that is said.
struct Tipo {
  QStringView nome;
  QLatin1StringView dichiarato;
  QLatin1StringView prova;  ///< % is the column
  QStringView regola;
  TipoCampo tipo;
  int dimensione;
};

constexpr std::array tipi{
    Tipo{u"integer", "SMALLINT"_L1, "% between -32768 and 32767 and % = cast(% as integer)"_L1,
         u"serve un numero intero da -32768 a 32767", TipoCampo::intero_breve, 2},
    Tipo{u"long", "INT"_L1, "% between -2147483648 and 2147483647 and % = cast(% as integer)"_L1,
         u"serve un numero intero da -2147483648 a 2147483647", TipoCampo::intero, 4},
    Tipo{u"byte", "TINYINT"_L1, "% between 0 and 255 and % = cast(% as integer)"_L1,
         u"serve un numero intero da 0 a 255", TipoCampo::intero_breve, 1},
    Tipo{u"yesno", "BOOLEAN"_L1, "% in (0, 1)"_L1, u"serve vero (1) o falso (0)", TipoCampo::booleano, 2},
    Tipo{u"single", "REAL"_L1, "% = cast(% as real)"_L1, u"serve un numero", TipoCampo::doppio, 4},
    Tipo{u"double", "DOUBLE"_L1, "% = cast(% as real)"_L1, u"serve un numero", TipoCampo::doppio, 8},
    Tipo{u"numeric", "NUMERIC"_L1, "% = cast(% as numeric)"_L1, u"serve un numero", TipoCampo::numerico, 19},
    Tipo{u"date", "DATETIME"_L1, "datetime(%, '+0 days') is %"_L1, u"serve una data valida", TipoCampo::data,
         8},
    Tipo{u"text", "TEXT"_L1, ""_L1, u"", TipoCampo::testo, 255},
    Tipo{u"memo", "LONGTEXT"_L1, ""_L1, u"", TipoCampo::memo, 536870910},
};

const Tipo* trova_tipo(QStringView parola) {
  for (const Tipo& t : tipi) {
    if (parola.compare(t.nome, Qt::CaseInsensitive) == 0) return &t;
  }
  return nullptr;
}

using Pezzi = std::vector<Lessema>;

QString riunisci(const Pezzi& pezzi, size_t da) {
  QString testo;
  for (size_t i = da; i < pezzi.size(); ++i) testo += u' ' + nome_lessema(pezzi[i]);
  return testo;
}

QString controllo(const QString& nome, const QString& regola, const QString& prova) {
  QString messaggio = senza_parentesi_quadre(nome) + u": "_s + regola;
  messaggio.replace(u'"', u'\'');
  return u" CONSTRAINT \""_s + messaggio + u"\" CHECK ("_s + prova + u')';
}

QString controllo_tipo(const Tipo& tipo, const QString& nome, int caratteri) {
  if (tipo.tipo == TipoCampo::memo) return {};
  if (tipo.tipo == TipoCampo::testo) {
    return controllo(nome, u"al massimo %1 caratteri"_s.arg(caratteri),
                     u"length(%1) <= %2"_s.arg(nome).arg(caratteri));
  }
  return controllo(nome, tipo.regola.toString(), QString(tipo.prova).replace(u'%', nome));
}

/// `[nome] tipo(n) ...`: the pieces come without blanks.
Esito<QString> colonna(const Pezzi& p, bool chiave) {
  const QString nome = nome_lessema(p[0]);
  const Tipo* tipo = p.size() > 1 ? trova_tipo(p[1].testo) : nullptr;
  if (tipo == nullptr) return Errore{1, u"Tipo di colonna sconosciuto: "_s + senza_parentesi_quadre(nome)};
  size_t resto = 2;
  int caratteri = tipo->dimensione;
  if (p.size() > 3 && p[2].e_segno(u'(')) {
    caratteri = p[3].testo.toInt();
    while (resto < p.size() && !p[resto++].e_segno(u')')) {
    }
  }
  const bool testo = e_testo(tipo->tipo);
  QString sql = nome + u' ' + tipo->dichiarato;
  if (tipo->tipo == TipoCampo::testo) sql += u"(%1)"_s.arg(caratteri);
  if (testo) sql += u" COLLATE senza_caso"_s;
  const QString coda = riunisci(p, resto);
  if ((chiave || coda.contains("primary"_L1, Qt::CaseInsensitive)) &&
      !coda.contains("null"_L1, Qt::CaseInsensitive)) {
    sql += u" NOT NULL"_s;
  }
  return sql + coda + controllo_tipo(*tipo, nome, caratteri);
}

/// The pieces between `da` and the parenthesis that closes there, parted at their commas.
std::vector<Pezzi> elementi(const Pezzi& p, size_t da) {
  std::vector<Pezzi> parti(1);
  int profondita = 0;
  for (size_t i = da; i < p.size(); ++i) {
    if (p[i].e_segno(u'(')) ++profondita;
    if (p[i].e_segno(u')') && --profondita < 0) break;
    if (p[i].e_segno(u',') && profondita == 0) {
      parti.emplace_back();
    } else {
      parti.back().push_back(p[i]);
    }
  }
  return parti;
}

bool e_vincolo(const Pezzi& p) {
  for (const QStringView parola : {u"constraint", u"primary", u"unique", u"foreign", u"check"}) {
    if (!p.empty() && p[0].e_parola(parola)) return true;
  }
  return false;
}

/// The columns that a table's constraint makes its primary key.
std::vector<QString> colonne_chiave(const std::vector<Pezzi>& parti) {
  std::vector<QString> colonne;
  for (const Pezzi& p : parti) {
    if (!e_vincolo(p)) continue;
    bool chiave = false;
    for (const Lessema& l : p) {
      if (chiave) colonne.push_back(senza_parentesi_quadre(nome_lessema(l)));
      chiave = chiave || l.e_parola(u"key");
    }
  }
  return colonne;
}

bool contiene(const std::vector<QString>& nomi, const QString& nome) {
  for (const QString& n : nomi) {
    if (n.compare(nome, Qt::CaseInsensitive) == 0) return true;
  }
  return false;
}

Esito<QString> crea_tabella(const Pezzi& p, size_t aperta) {
  QString sql;
  const std::vector<Pezzi> parti = elementi(p, aperta + 1);
  const std::vector<QString> chiave = colonne_chiave(parti);
  for (const Pezzi& parte : parti) {
    if (parte.empty()) continue;
    if (!sql.isEmpty()) sql += u","_s;
    if (e_vincolo(parte)) {
      sql += riunisci(parte, 0);
      continue;
    }
    const auto c = colonna(parte, contiene(chiave, senza_parentesi_quadre(nome_lessema(parte[0]))));
    if (c.fallito()) return c.errore();
    sql += u' ' + *c;
  }
  return riunisci(Pezzi(p.begin(), p.begin() + static_cast<std::ptrdiff_t>(aperta)), 0).trimmed() + u" ("_s +
         sql + u')';
}

Pezzi senza_spazi(const std::vector<Lessema>& lessemi) {
  Pezzi p;
  for (const Lessema& l : lessemi) {
    if (l.tipo != TipoLessema::spazio && !l.e_segno(u';')) p.push_back(l);
  }
  return p;
}

}  // namespace

std::optional<Esito<QString>> abbassa_definizione(const std::vector<Lessema>& lessemi) {
  const Pezzi p = senza_spazi(lessemi);
  if (p.size() < 4 || !p[1].e_parola(u"table")) return std::nullopt;
  if (p[0].e_parola(u"create")) {
    size_t aperta = 2;
    while (aperta < p.size() && !p[aperta].e_segno(u'(') && !p[aperta].e_parola(u"as")) ++aperta;
    if (aperta == p.size() || !p[aperta].e_segno(u'(')) return std::nullopt;
    return crea_tabella(p, aperta);
  }
  if (!p[0].e_parola(u"alter") || !p[3].e_parola(u"add")) return std::nullopt;
  const size_t prima = p.size() > 4 && p[4].e_parola(u"column") ? 5 : 4;
  const Pezzi resto(p.begin() + static_cast<std::ptrdiff_t>(std::min(prima, p.size())), p.end());
  if (resto.empty() || e_vincolo(resto)) return std::nullopt;
  const auto c = colonna(resto, false);
  if (c.fallito()) return c;
  return u"ALTER TABLE "_s + nome_lessema(p[2]) + u" ADD COLUMN "_s + *c;
}

Campo campo_dichiarato(const QString& nome, QByteArrayView dichiarato) {
  const qsizetype parentesi = dichiarato.indexOf('(');
  const QByteArrayView parola = parentesi < 0 ? dichiarato : dichiarato.first(parentesi).trimmed();
  for (const Tipo& t : tipi) {
    if (QByteArrayView(t.dichiarato).compare(parola, Qt::CaseInsensitive) != 0) continue;
    const int caratteri = parentesi < 0 ? t.dimensione : dichiarato.sliced(parentesi + 1).chopped(1).toInt();
    return {nome, t.tipo, t.tipo == TipoCampo::testo ? caratteri : t.dimensione};
  }
  return {nome, TipoCampo::testo, 255};
}

}  // namespace lokera
