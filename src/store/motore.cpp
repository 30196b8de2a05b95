#include "store/motore.h"

#include <utility>

#include "store/errori_motore.h"

namespace lokera {

using namespace Qt::StringLiterals;

void ConteggioModifiche::riga(const char* tabella) {
  if (conto_ultima_ == nullptr || qstricmp(tabella, ultima_.constData()) != 0) {
    ultima_ = QByteArray(tabella).toLower();
    conto_ultima_ = &tabelle_[ultima_];
  }
  ++*conto_ultima_;
}

void ConteggioModifiche::tabella_intera(const QString& tabella) {
  conto_ultima_ = nullptr;  // the hash may move
  ++tabelle_[tabella.toLower().toUtf8()];
}

quint64 ConteggioModifiche::versione(const QString& tabella) const {
  return tutte_ + tabelle_.value(tabella.toLower().toUtf8());
}

Esito<std::shared_ptr<Statement>> Connection::Motore::prendi(const QString& sql) {
  if (db == nullptr) return Errore{SQLITE_MISUSE, u"Database non aperto"_s};
  ++istruzioni;
  return statement.prendi(db, sql);
}

Esito<qint64> Connection::Motore::esegui_fino_in_fondo(Statement& s) {
  if (transazione && sqlite3_get_autocommit(db) != 0) {
    s.azzera();
    return Errore{SQLITE_ABORT, u"La transazione è stata annullata da un errore precedente"_s};
  }
  int rc = sqlite3_step(s.grezzo());
  while (rc == SQLITE_ROW) rc = sqlite3_step(s.grezzo());
  Errore errore;
  if (rc != SQLITE_DONE) errore = errore_motore(db, rc);
  const bool scrive = s.tipo() == TipoIstruzione::inserimento || s.tipo() == TipoIstruzione::modifica ||
                      s.tipo() == TipoIstruzione::cancellazione;
  const qint64 righe = scrive ? sqlite3_changes(db) : -1;
  // A table emptied as a whole tells nothing row by row.
  if (s.tipo() == TipoIstruzione::cancellazione) modifiche.tabella_intera(s.tabella());
  s.azzera();
  if (errore.fallito()) return errore;
  return righe;
}

Esito<qint64> Connection::Motore::esegui(const QString& sql, const QVariantList& valori) {
  const auto s = prendi(sql);
  if (s.fallito()) return s.errore();
  if (const Errore e = (*s)->lega(valori); e.fallito()) return e;
  auto righe = esegui_fino_in_fondo(**s);
  if ((*s)->tipo() == TipoIstruzione::definizione && !righe.fallito()) {
    statement.svuota();
    modifiche.tutte();
  }
  return righe;
}

quint64 Connection::Motore::versione(const QString& tabella) {
  const auto esito = prendi(u"pragma data_version"_s);
  const auto& s = *esito;  // null after a failure
  const bool letta = s && sqlite3_step(s->grezzo()) == SQLITE_ROW;
  const int file = letta ? sqlite3_column_int(s->grezzo(), 0) : -1;
  if (s) s->azzera();
  // What can't be read may have changed.
  if (file != versione_file_ || file < 0) modifiche.tutte();
  versione_file_ = file;
  return modifiche.versione(tabella);
}

void Connection::Motore::chiudi() {
  statement.svuota();
  if (db != nullptr) sqlite3_close_v2(std::exchange(db, nullptr));
  transazione = false;
}

}  // namespace lokera
