#include "store/database.h"

namespace lokera {

using namespace Qt::StringLiterals;

QString nome_file_database() {
  return u"lokera.mdb"_s;
}

QString password_database() {
  return u"k3nt4ur9"_s;
}

Errore apri_database(Database& db, const QString& cartella) {
  db.tipo_database = u"Access"_s;
  db.lingua_interfaccia = 0;
  return db.connessione_db.Open(cartella + u'/' + nome_file_database(), password_database());
}

}  // namespace lokera
