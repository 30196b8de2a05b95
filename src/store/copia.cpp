#include <QFile>

#include "store/file_parziale.h"
#include "store/recordset.h"
#include "store/schema_base.h"

namespace lokera {

using namespace Qt::StringLiterals;

namespace {

Errore copia_byte(const QString& file, const QString& destinazione) {
  QFile da(file);
  QFile a(destinazione);
  bool buona = da.open(QIODevice::ReadOnly) && a.open(QIODevice::WriteOnly);
  a.setPermissions(da.permissions() | QFile::WriteOwner);
  while (buona && !da.atEnd()) {
    const QByteArray pezzo = da.read(1 << 20);
    buona = !pezzo.isEmpty() && a.write(pezzo) == pezzo.size();
  }
  if (buona && a.flush()) return {};
  return {1, u"Impossibile scrivere il file: "_s + destinazione};
}

/// With nobody able to commit, the file's bytes are one state of the database, encrypted as they lie.
Errore copia_ferma(Connection& connessione, const QString& file, const QString& destinazione) {
  Recordset lettura;  // the open reading is the lock
  if (Errore e = lettura.Open(u"select name from sqlite_master"_s, connessione); e.fallito()) return e;
  return copia_byte(file, destinazione);
}

Errore verifica(const QString& file, const QString& password) {
  Connection copia;
  if (Errore e = copia.Open(file, password); e.fallito()) return e;
  return controlla_database(copia);
}

}  // namespace

Errore controlla_database(Connection& connessione) {
  Recordset rs;
  if (Errore e = rs.Open(u"pragma integrity_check(1)"_s, connessione); e.fallito()) return e;
  const QString esito = rs.valore(0).toString();
  if (esito == "ok"_L1) return {};
  return {1, u"Il file del database è danneggiato: "_s + esito, ClasseErrore::perduto};
}

Errore copia_database(Connection& connessione, const QString& file, const QString& destinazione,
                      const QString& password) {
  FileParziale parziale(destinazione);
  if (parziale.inizio().fallito()) return parziale.inizio();
  if (Errore e = copia_ferma(connessione, file, parziale.nome()); e.fallito()) return e;
  if (Errore e = verifica(parziale.nome(), password); e.fallito()) return e;
  return parziale.conferma();
}

}  // namespace lokera
