#include "store/lessico.h"

namespace lokera {

namespace {

bool inizia_parola(QChar c) {
  return c.isLetter() || c == u'_' || c.isSurrogate();
}
bool continua_parola(QChar c) {
  return inizia_parola(c) || c.isDigit() || c.isMark() || c == u'$';
}

qsizetype fine_testo(QStringView s, qsizetype i, QChar apice) {
  for (++i; i < s.size(); ++i) {
    if (s[i] != apice) continue;
    if (i + 1 < s.size() && s[i + 1] == apice) {
      ++i;
    } else {
      return i + 1;
    }
  }
  return s.size();
}

qsizetype fine_chiusa(QStringView s, qsizetype i, QChar chiusura) {
  const qsizetype fine = s.indexOf(chiusura, i + 1);
  return fine < 0 ? s.size() : fine + 1;
}

/// `i` itself when no comment begins there.
qsizetype fine_commento(QStringView s, qsizetype i) {
  const QStringView da = s.sliced(i);
  const bool riga = da.startsWith(u"--");
  if (!riga && !da.startsWith(u"/*")) return i;
  const qsizetype fine = riga ? s.indexOf(u'\n', i) : s.indexOf(u"*/", i + 2);
  return fine < 0 ? s.size() : fine + (riga ? 1 : 2);
}

template <typename Prova>
qsizetype fine_serie(QStringView s, qsizetype i, Prova prova) {
  while (i < s.size() && prova(s[i])) ++i;
  return i;
}

Lessema lessema(QStringView s, qsizetype i) {
  const QChar c = s[i];
  const auto pezzo = [&](TipoLessema tipo, qsizetype fine) { return Lessema{tipo, s.sliced(i, fine - i)}; };
  if (c.isSpace()) return pezzo(TipoLessema::spazio, fine_serie(s, i, [](QChar x) { return x.isSpace(); }));
  if (const qsizetype fine = fine_commento(s, i); fine > i) return pezzo(TipoLessema::spazio, fine);
  if (c == u'\'' || c == u'"') return pezzo(TipoLessema::testo, fine_testo(s, i, c));
  if (c == u'[') return pezzo(TipoLessema::nome, fine_chiusa(s, i, u']'));
  if (c == u'#' && s.indexOf(c, i + 1) >= 0) return pezzo(TipoLessema::data, fine_chiusa(s, i, c));
  if (inizia_parola(c)) return pezzo(TipoLessema::parola, fine_serie(s, i, continua_parola));
  if (c.isDigit()) {
    return pezzo(TipoLessema::numero,
                 fine_serie(s, i, [](QChar x) { return x.isLetterOrNumber() || x == u'.'; }));
  }
  return pezzo(TipoLessema::segno, i + 1);
}

}  // namespace

std::vector<Lessema> scomponi(QStringView sql) {
  std::vector<Lessema> lessemi;
  lessemi.reserve(64);
  for (qsizetype i = 0; i < sql.size();) {
    lessemi.push_back(lessema(sql, i));
    i += lessemi.back().testo.size();
  }
  return lessemi;
}

}  // namespace lokera
