#include "store/errori_motore.h"

namespace lokera {

using namespace Qt::StringLiterals;

namespace {

/// What follows the first ": " of the engine's text, or all of it.
QString oggetto(const QString& testo) {
  const qsizetype taglio = testo.indexOf(": "_L1);
  return taglio < 0 ? testo : testo.sliced(taglio + 2);
}

QString vincolo(int codice, const QString& testo) {
  switch (codice) {
    case SQLITE_CONSTRAINT_CHECK:
      return u"Valore non ammesso. "_s + oggetto(testo);
    case SQLITE_CONSTRAINT_NOTNULL:
      return u"Il campo chiave non può essere Null: "_s + oggetto(testo);
    case SQLITE_CONSTRAINT_UNIQUE:
    case SQLITE_CONSTRAINT_PRIMARYKEY:
      return u"Esiste già un record con la stessa chiave: "_s + oggetto(testo);
    default:
      return u"Valore non ammesso. "_s + testo;
  }
}

QString descrizione(int codice, const QString& testo) {
  switch (codice & 0xFF) {
    case SQLITE_CONSTRAINT:
      return vincolo(codice, testo);
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
      return u"Database occupato da un altro programma"_s;
    case SQLITE_FULL:
      return u"Spazio su disco esaurito"_s;
    case SQLITE_READONLY:
      return u"Database in sola lettura"_s;
    case SQLITE_NOTADB:
      return u"Password errata, o il file non è un database"_s;
    case SQLITE_CORRUPT:
      return u"Il file del database è danneggiato"_s;
    case SQLITE_CANTOPEN:
      return u"Impossibile aprire il file del database"_s;
    case SQLITE_IOERR:
      return u"Errore di lettura o scrittura sul disco"_s;
    case SQLITE_TOOBIG:
      return u"Valore troppo grande"_s;
    case SQLITE_NOMEM:
      return u"Memoria esaurita"_s;
    default:
      return u"Errore nell'istruzione: "_s + testo;
  }
}

/// The engine has one number for all that it can't prepare; only its text tells a missing table or column.
ClasseErrore classe_istruzione(const QString& testo) {
  const bool manca = testo.startsWith("no such table"_L1) || testo.startsWith("no such column"_L1) ||
                     testo.contains("has no column named"_L1);
  return manca ? ClasseErrore::schema : ClasseErrore::altro;
}

ClasseErrore classe(int codice, const QString& testo) {
  switch (codice & 0xFF) {
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
      return ClasseErrore::bloccato;
    case SQLITE_ERROR:
      return classe_istruzione(testo);
    case SQLITE_FULL:
      return ClasseErrore::pieno;
    case SQLITE_READONLY:
    case SQLITE_PERM:
      return ClasseErrore::diritti;
    case SQLITE_NOTADB:
    case SQLITE_CORRUPT:
    case SQLITE_CANTOPEN:
    case SQLITE_IOERR:
      return ClasseErrore::perduto;
    default:
      return ClasseErrore::altro;
  }
}

}  // namespace

Errore errore_motore(sqlite3* db, int codice) {
  const int esteso = db != nullptr ? sqlite3_extended_errcode(db) : codice;
  const int numero = (esteso & 0xFF) == (codice & 0xFF) ? esteso : codice;
  const QString testo = QString::fromUtf8(db != nullptr ? sqlite3_errmsg(db) : "");
  return {numero, descrizione(numero, testo), classe(numero, testo)};
}

}  // namespace lokera
