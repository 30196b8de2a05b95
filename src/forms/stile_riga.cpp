#include "forms/stile_riga.h"

namespace lokera {

namespace {

constexpr struct {
  QStringView nome;
  StileRiga stile;
} stili[] = {
    {u"bold", {.grassetto = true}},
    {u"scaduto", {.testo = 0x9A1B1B, .corsivo = true}},
    // Words in the row tell these apart.
    {u"entrata", {.testo = 0x1B5E20}},
    {u"uscita", {.testo = 0x8A1538}},
    {u"IN", {.testo = 0x1B5E20}},
    {u"OUT", {.testo = 0x8A1538}},
};

}  // namespace

StileRiga stile_riga(QStringView nome) {
  for (const auto& s : stili)
    if (nome.compare(s.nome, Qt::CaseInsensitive) == 0) return s.stile;
  return {};
}

}  // namespace lokera
