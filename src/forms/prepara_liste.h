#pragma once

#include <initializer_list>

#include "forms/griglia.h"

namespace lokera {

/// A list of a window and the query that its columns are like where the layout table has no rows for it.
struct ListaDiFinestra {
  griglia& lista;
  QString sql_modello;
};

/// What each window with lists does first in its Form_Load: its title, the columns of its lists, and all of
/// it in the language of the interface. The rows come after, so that a long filling shows a window that is
/// ready.
void prepara_liste(Finestra& finestra, ServiziGriglia& servizi, Connection& conn, const QString& titolo,
                   std::initializer_list<ListaDiFinestra> liste);

/// The user may add, change and delete rows.
void apri_a_modifiche(std::initializer_list<SSOleDBGrid*> liste);

/// Changes the column of that field; nothing when the layout shows no such field.
template <class F>
void con_colonna(SSOleDBGrid& grd, QStringView campo, F cambia) {
  const int i = grd.colonna(campo);
  if (i < 0) return;
  Colonna c = grd.Columns(i);
  cambia(c);
  grd.imposta_colonna(i, c);
}

}  // namespace lokera
