#pragma once

#include <initializer_list>
#include <span>

#include "forms/ss_ole_db_grid.h"

namespace lokera {

/// Lists whose rules name their cells by field, wherever the layout table has put the columns, or left them
/// out.

/// Adds the columns of those fields that the layout doesn't show, behind the others. `visibili` for a list
/// that has no layout at all.
void completa_colonne(SSOleDBGrid& grd, std::span<const char16_t* const> campi, bool visibili);

struct CellaNuova {
  QStringView campo;
  QString testo;
};

/// A row at the end; cells that aren't named are empty.
void aggiungi_riga(SSOleDBGrid& grd, std::initializer_list<CellaNuova> celle);

/// The first row whose cell of that field says this, in any case; -1 when none does.
int riga_con(const SSOleDBGrid& grd, QStringView campo, const QString& testo);

}  // namespace lokera
