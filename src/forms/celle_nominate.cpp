#include "forms/celle_nominate.h"

namespace lokera {

void completa_colonne(SSOleDBGrid& grd, std::span<const char16_t* const> campi, bool visibili) {
  std::vector<Colonna> colonne;
  colonne.reserve(static_cast<size_t>(grd.Cols()) + campi.size());
  for (int i = 0; i < grd.Cols(); ++i) colonne.push_back(grd.Columns(i));
  for (const char16_t* campo : campi) {
    if (grd.colonna(campo) >= 0) continue;
    Colonna colonna;
    colonna.campo = colonna.Caption = QString::fromUtf16(campo);
    colonna.Visible = visibili;
    colonne.push_back(colonna);
  }
  grd.imposta_colonne(std::move(colonne));
}

void aggiungi_riga(SSOleDBGrid& grd, std::initializer_list<CellaNuova> celle) {
  QStringList riga(grd.Cols());
  for (const CellaNuova& c : celle) riga[grd.colonna(c.campo)] = c.testo;
  grd.AddItem(riga);
}

int riga_con(const SSOleDBGrid& grd, QStringView campo, const QString& testo) {
  const int colonna = grd.colonna(campo);
  for (int riga = 0; riga < grd.Rows(); ++riga)
    if (grd.cella(riga, colonna).compare(testo, Qt::CaseInsensitive) == 0) return riga;
  return -1;
}

}  // namespace lokera
