#pragma once

#include <QString>
#include <QStringList>

#include <functional>

#include "store/database.h"

namespace lokera {

/// Makes the delivered file: every table, the indexes and the delivered rows, and what `altro` adds to them.
/// Refuses to overwrite. The file bears its name only once it is whole; after a failure none is left.
Errore crea_database(const QString& file, const QString& password = password_database(),
                     const std::function<Errore(Connection&)>& altro = {});

/// The tables of the system that the file lacks.
QStringList tabelle_mancanti(Connection& connessione);

/// Whether every page and index of the file is sound. A failure tells the first thing that is not.
Errore controlla_database(Connection& connessione);

/// Copies an open database, as it stands between two commits, to a new file with the same password, and opens
/// and checks the copy. Refuses to overwrite; after a failure no file is left. Another console can't commit
/// while the bytes are copied.
Errore copia_database(Connection& connessione, const QString& file, const QString& destinazione,
                      const QString& password = password_database());

}  // namespace lokera
