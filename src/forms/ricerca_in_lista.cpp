#include "forms/ricerca_in_lista.h"

#include <QStringMatcher>

#include <algorithm>

namespace lokera {

using namespace Qt::StringLiterals;

namespace {

char minuscola(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
}

/// What a row must hold for one of its cells to hold the text; empty when the text says nothing of that.
QByteArray da_trovare(const QString& testo) {
  const bool semplice = std::ranges::all_of(testo, [](QChar c) { return c.unicode() < 0x80; });
  QByteArray minuscolo = semplice ? testo.toUtf8() : QByteArray();
  std::ranges::transform(minuscolo, minuscolo.begin(), minuscola);
  return minuscolo;
}

bool contiene(QByteArrayView riga, QByteArrayView minuscolo) {
  const auto uguali = [](char a, char b) { return minuscola(a) == b; };
  return minuscolo.isEmpty() ||
         std::search(riga.begin(), riga.end(), minuscolo.begin(), minuscolo.end(), uguali) != riga.end();
}

}  // namespace

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
  const auto nel_testo = [&](const QString& dove) { return cercato.indexIn(dove) >= 0; };
  const QByteArray prima = da_trovare(testo);
  const int righe = grd_.Rows();
  for (int i = 0; i < righe; ++i) {
    const int riga = (std::max(da, 0) + i) % righe;
    if (contiene(grd_.riga_utf8(riga), prima) &&
        std::ranges::any_of(colonne, [&](int c) { return nel_testo(grd_.cella(riga, c)); }))
      return riga;
    if (anche && nel_testo(anche(riga))) return riga;
  }
  return -1;
}

}  // namespace lokera
