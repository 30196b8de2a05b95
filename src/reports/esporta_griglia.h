#pragma once

#include "forms/lavoro.h"
#include "forms/ss_ole_db_grid.h"
#include "platform/spreadsheet.h"
#include "reports/file_scritto.h"

namespace lokera {

/// The letters of a sheet's columns end at "BI".
constexpr int colonne_foglio = 61;
/// Rows of a list that a sheet has room for, under its title and heads.
constexpr int righe_foglio = 1048576 - 3;

/// The list as lines, its cells each followed by ";": first the heads, then its rows, or those of them that
/// the person has selected. False when it was given up.
bool esporta_testo(const SSOleDBGrid& grd, FileScritto& file, Lavoro& lavoro);

/// The list as a sheet: the title in row 1, the heads in row 3, all its rows from row 4 on, as far as they
/// fit. Codes are texts; dates and numbers are what they are. False when it was given up.
bool esporta_foglio(const SSOleDBGrid& grd, const QString& titolo, Workbook& libro, Lavoro& lavoro);

}  // namespace lokera
