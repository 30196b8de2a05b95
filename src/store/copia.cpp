#include <QFile>

#include "store/recordset.h"
#include "store/schema_base.h"

namespace lokera {

using namespace Qt::StringLiterals;

namespace {

/// With nobody able to commit, the file's bytes are one state of the database, encrypted as they lie.
Errore copia_byte(Connection& connessione, const QString& file, const QString& destinazione) {
  Recordset lettura;  // the open reading is the lock
  if (Errore e = lettura.Open(u"select name from sqlite_master"_s, connessione)) return e;
  if (QFile::copy(file, destinazione)) return {};
  QFile::remove(destinazione);
  return {1, u"Impossibile scrivere il file: "_s + destinazione};
}

Errore verifica(const QString& file, const QString& password) {
  Connection copia;
  if (Errore e = copia.Open(file, password)) return e;
  return controlla_database(copia);
}

}  // namespace

Errore controlla_database(Connection& connessione) {
  Recordset rs;
  if (Errore e = rs.Open(u"pragma quick_check(1)"_s, connessione)) return e;
  const QString esito = rs.valore(0).toString();
  if (esito == "ok"_L1) return {};
  return {1, u"Il file del database è danneggiato: "_s + esito};
}

Errore copia_database(Connection& connessione, const QString& file, const QString& destinazione,
                      const QString& password) {
  if (QFile::exists(destinazione)) return {1, u"Il file esiste già: "_s + destinazione};
  const QString parziale = destinazione + u".parziale"_s;
  QFile::remove(parziale);
  Errore errore = copia_byte(connessione, file, parziale);
  if (!errore) {
    QFile::setPermissions(parziale, QFile::permissions(parziale) | QFile::WriteOwner);
    errore = verifica(parziale, password);
  }
  if (!errore && !QFile::rename(parziale, destinazione)) {
    errore = {1, u"Impossibile scrivere il file: "_s + destinazione};
  }
  if (errore) QFile::remove(parziale);
  return errore;
}

}  // namespace lokera
