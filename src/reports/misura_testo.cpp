#include "reports/misura_testo.h"

#include <QTextBoundaryFinder>

#include <algorithm>

namespace lokera {

namespace {
constexpr char16_t primo_visibile = u' ';
constexpr char16_t ultimo_visibile = u'~';
}  // namespace

MisuraTesto::MisuraTesto(const Printer& stampante, const Carattere& carattere)
    : stampante_(stampante), carattere_(carattere), altezza_(stampante.TextHeight(carattere)) {
  for (char16_t c = primo_visibile; c <= ultimo_visibile; ++c)
    decimi_[c] = stampante.TextWidth(carattere, QString(10, QChar(c)));
}

int MisuraTesto::larghezza(const QString& testo) const {
  int decimi = 0;
  for (const QChar c : testo) {
    if (c < primo_visibile || c > ultimo_visibile) return stampante_.TextWidth(carattere_, testo);
    decimi += decimi_[c.unicode()];
  }
  return (decimi + 9) / 10;
}

// What is a hair too wide by its letters may fit as a text, whose letters stand closer.
bool MisuraTesto::ci_sta(const QString& testo, int spazio) const {
  const int somma = larghezza(testo);
  return somma <= spazio || (somma <= spazio * 11 / 10 && stampante_.TextWidth(carattere_, testo) <= spazio);
}

QString MisuraTesto::taglia(const QString& testo, int spazio) const {
  if (ci_sta(testo, spazio)) return testo;
  QTextBoundaryFinder lettere(QTextBoundaryFinder::Grapheme, testo);
  std::vector<qsizetype> fini{0};
  while (lettere.toNextBoundary() > 0) fini.push_back(lettere.position());
  const auto troppo = std::partition_point(fini.begin() + 1, fini.end(),
                                           [&](qsizetype fine) { return ci_sta(testo.first(fine), spazio); });
  return testo.first(*(troppo - 1));
}

}  // namespace lokera
