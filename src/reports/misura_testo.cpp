#include "reports/misura_testo.h"

#include <QTextBoundaryFinder>

#include <algorithm>

namespace lokera {

namespace {
/// Letters that stand side by side in any text and are drawn one by one.
constexpr bool semplice(char16_t c) {
  return (c >= u' ' && c <= u'~') || (c > 0xA0 && c <= 0xFF && c != 0xAD);
}
}  // namespace

MisuraTesto::MisuraTesto(const Printer& stampante, const Carattere& carattere)
    : stampante_(stampante), carattere_(carattere), altezza_(stampante.TextHeight(carattere)) {
  for (size_t i = 0; i < decimi_.size(); ++i)
    if (const auto c = static_cast<char16_t>(i); semplice(c))
      decimi_[i] = stampante.TextWidth(carattere, QString(10, QChar(c)));
}

int MisuraTesto::larghezza(const QString& testo) const {
  int decimi = 0;
  for (const QChar c : testo) {
    if (!semplice(c.unicode())) return stampante_.TextWidth(carattere_, testo);
    decimi += decimi_[c.unicode()];
  }
  return (decimi + 9) / 10;
}

// What is a hair too wide by its letters may fit as a text, whose letters stand closer.
bool MisuraTesto::ci_sta(const QString& testo, int somma, int spazio) const {
  return somma <= spazio ||
         (somma <= spazio + spazio / 20 && stampante_.TextWidth(carattere_, testo) <= spazio);
}

QString MisuraTesto::taglia(const QString& testo, int spazio) const {
  if (ci_sta(testo, larghezza(testo), spazio)) return testo;
  QTextBoundaryFinder lettere(QTextBoundaryFinder::Grapheme, testo);
  std::vector<qsizetype> fini{0};
  while (lettere.toNextBoundary() > 0) fini.push_back(lettere.position());
  auto fine = std::partition_point(fini.begin() + 1, fini.end(),
                                   [&](qsizetype n) { return larghezza(testo.first(n)) <= spazio; });
  while (fine != fini.end() && ci_sta(testo.first(*fine), larghezza(testo.first(*fine)), spazio)) ++fine;
  return testo.first(*(fine - 1));
}

}  // namespace lokera
