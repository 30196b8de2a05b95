#pragma once

#include <QByteArray>

#include "store/connection.h"

namespace lokera {

/// Puts the rows that every file is delivered with into their empty tables: grid layouts, translations, print
/// defaults, the company's data.
Errore carica_dati_consegnati(Connection& connessione);

/// Rows as text: a first line of column names, then one row a line, cells parted by tabs. An empty cell is
/// one blank in a text column, 0 in a number, Null in a date. A failure names the line.
Errore carica_righe(Connection& connessione, const QString& tabella, const QByteArray& tsv);

}  // namespace lokera
