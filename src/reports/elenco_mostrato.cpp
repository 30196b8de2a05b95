#include "reports/elenco_mostrato.h"

#include <algorithm>

namespace lokera {

ElencoMostrato::ElencoMostrato(const SSOleDBGrid& grd) : grd_(grd) {
  for (int i = 0; i < grd.Cols(); ++i) {
    const lokera::Colonna& c = grd.Columns(i);
    if (c.Visible) colonne_.push_back({i, c.Caption, c.Width, c.allineamento, c.stile == StileCella::spunta});
  }
  celle_.resize(colonne_.size());
  calcolate_.resize(colonne_.size());
  della_riga_.resize(static_cast<size_t>(grd.Cols()));
}

void ElencoMostrato::prendi(int riga) {
  dividi(grd_.riga_utf8(riga));
  for (size_t i = 0; i < colonne_.size(); ++i)
    celle_[i] = della_riga_[static_cast<size_t>(colonne_[i].indice)];
  for (const auto& [colonna, testo] : grd_.aspetto(riga).celle) {
    const auto dove = std::ranges::find(colonne_, colonna, &Colonna::indice);
    if (dove == colonne_.end()) continue;
    const auto i = static_cast<size_t>(dove - colonne_.begin());
    celle_[i] = calcolate_[i] = testo.toUtf8();
  }
}

void ElencoMostrato::dividi(QByteArrayView riga) {
  qsizetype inizio = 0;
  for (QByteArrayView& cella : della_riga_) {
    const qsizetype tab = inizio > riga.size() ? -1 : riga.indexOf('\t', inizio);
    const qsizetype fine = tab < 0 ? riga.size() : tab;
    cella = inizio > fine ? QByteArrayView() : riga.sliced(inizio, fine - inizio);
    inizio = fine + 1;
  }
}

QString ElencoMostrato::testo(size_t colonna) const {
  QByteArray testo = celle_[colonna].toByteArray();
  in_una_riga(testo);
  return QString::fromUtf8(testo);
}

void in_una_riga(QByteArray& testo) {
  const auto controllo = [](char c) { return static_cast<unsigned char>(c) < ' '; };
  std::replace_if(testo.begin(), testo.end(), controllo, ' ');
}

}  // namespace lokera
