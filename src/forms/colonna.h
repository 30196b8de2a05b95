#pragma once

#include <QString>

namespace lokera {

enum class Allineamento { sinistra, centro, destra };
enum class StileCella { testo, spunta };

class SSOleDBDropDown;

/// One column of a list. Widths are the grid's own units (1/15 of a pixel).
struct Colonna {
  QString Caption;
  QString campo;  ///< the field it shows and saves; empty for a computed column
  int Width = 1000;
  bool Visible = true;
  Allineamento allineamento = Allineamento::sinistra;
  StileCella stile = StileCella::testo;
  QString formato;    ///< number format; empty for none
  int caratteri = 0;  ///< largest number of characters; 0 for no limit
  bool bloccata = false;
  SSOleDBDropDown* elenco = nullptr;  ///< takes its values from this list; not owned
};

constexpr int unita_per_pixel = 15;

/// Puts the captions of a list's columns through `traduci`.
template <class Lista, class Traduzione>
void traduci_colonne(Lista& lista, const Traduzione& traduci) {
  for (int i = 0; i < lista.Cols(); ++i) {
    Colonna colonna = lista.Columns(i);
    colonna.Caption = traduci(colonna.Caption);
    if (colonna.Caption != lista.Columns(i).Caption) lista.imposta_colonna(i, colonna);
  }
}

}  // namespace lokera
