#pragma once

#include <QString>
#include <QStringList>

#include <functional>
#include <vector>

#include "store/database.h"

namespace lokera {

/// Makes the delivered file: every table, the indexes and the delivered rows, and what `altro` adds to them.
/// Refuses to overwrite. The file bears its name only once it is whole, and ".parziale" behind it until then;
/// after a failure none is left. A ".parziale" that is there already is somebody else's: refused.
Errore crea_database(const QString& file, const QString& password = password_database(),
                     const std::function<Errore(Connection&)>& altro = {});

/// A table that the program needs, with its columns.
struct TabellaAttesa {
  QString nome;
  QStringList colonne;
};

/// The names between brackets in a table's definition that a type follows.
QStringList colonne_definite(const QString& definizione);
/// The tables that the migration makes.
std::vector<TabellaAttesa> tabelle_della_migrazione();

/// Whether the file has every table and column that the program needs. A failure names those that it lacks.
Errore controlla_schema(Connection& connessione);

/// Whether every page of the file is sound and every index agrees with its table. A failure tells the first
/// thing that is not. Reads the whole file.
Errore controlla_database(Connection& connessione);

/// Copies an open database, as it stands between two commits, to a new file with the same password, and opens
/// and checks the copy. Refuses to overwrite, as `crea_database` does; after a failure no file is left.
/// Another console can't commit while the bytes are copied.
Errore copia_database(Connection& connessione, const QString& file, const QString& destinazione,
                      const QString& password = password_database());

}  // namespace lokera
