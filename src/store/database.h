#pragma once

#include <QString>

#include "platform/letterali.h"
#include "store/connection.h"

namespace lokera {

/// The one open database of a console, with the two settings that are shared with it.
struct Database {
  Connection connessione_db;
  QString tipo_database = u"Access"_s;
  qint16 lingua_interfaccia = 0;  ///< 0 Italian, 1 the second language
};

/// Name and password of the file in the program's folder.
QString nome_file_database();
QString password_database();

/// Opens `lokera.mdb` in `cartella`: sets `tipo_database` to "Access" and the language to Italian. The caller
/// shows the message and ends the program on a failure.
Errore apri_database(Database& db, const QString& cartella);

/// The migration: brings a file of any earlier release up to the present one. Every step that fails (a table
/// or column that is there) is skipped; running it again changes nothing. Makes the indexes too. It is one
/// transaction, or part of the caller's: where it can't write, or can't commit, nothing is changed and the
/// failure is returned.
Errore aggiorna_database(Database& db);

/// The pieces of the migration. `aggiungi_campo` fills a column that is really new: 0 in numbers, one blank
/// in texts, Null in dates. Both ignore every failure.
QString converti_ddl(const QString& statement, const QString& tipo_database);
void esegui_ddl(Database& db, const QString& statement);
void aggiungi_campo(Database& db, const QString& tabella, const QString& campo, const QString& tipo);

}  // namespace lokera
