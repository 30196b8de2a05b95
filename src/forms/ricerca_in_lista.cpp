#include "forms/ricerca_in_lista.h"

#include <QStringMatcher>

#include <algorithm>

namespace lokera {

using namespace Qt::StringLiterals;

RicercaInLista::RicercaInLista(SSOleDBGrid& grd, Traduttore& traduttore, QStringList campi)
    : lblCerca(grd.finestra(), u"lblCerca"_s, u"cerca"_s),
      txtCerca(grd.finestra(), u"txtCerca"_s),
      grd_(grd),
      traduttore_(traduttore),
      campi_(std::move(campi)) {
  txtCerca.Change = [this] { cerca(grd_.Row()); };
  txtCerca.Invio = [this] { cerca(grd_.Row() + 1); };
}

void RicercaInLista::cerca(int da) {
  if (!grd_.Enabled()) return;
  const QString testo = txtCerca.Text().trimmed();
  const int riga = testo.isEmpty() ? -1 : trova(testo, da);
  const bool nessuna = riga < 0 && !testo.isEmpty();
  lblCerca.Caption =
      nessuna ? traduttore_.traduci(u"cerca: nessuna riga"_s) : traduttore_.traduci(u"cerca"_s);
  grd_.Row(riga);
}

int RicercaInLista::trova(const QString& testo, int da) const {
  const QStringMatcher cercato(testo, Qt::CaseInsensitive);
  std::vector<int> colonne;
  for (const QString& campo : campi_)
    if (const int c = grd_.colonna(campo); c >= 0) colonne.push_back(c);
  const auto contiene = [&](const QString& dove) { return cercato.indexIn(dove) >= 0; };
  const int righe = grd_.Rows();
  for (int i = 0; i < righe; ++i) {
    const int riga = (std::max(da, 0) + i) % righe;
    if (std::ranges::any_of(colonne, [&](int c) { return contiene(grd_.cella(riga, c)); })) return riga;
    if (anche && contiene(anche(riga))) return riga;
  }
  return -1;
}

}  // namespace lokera
