#include "store/connection.h"

#include "store/errori_motore.h"
#include "store/motore.h"

namespace lokera {

using namespace Qt::StringLiterals;

Connection::Connection() : motore_(std::make_unique<Motore>()) {}
Connection::~Connection() = default;

Errore Connection::Open(const QString& file, const QString& password) {
  return motore_->apri(file, password, false);
}

Errore Connection::crea(const QString& file, const QString& password) {
  if (Errore e = motore_->apri(file, password, true); e.fallito()) return e;
  // An empty file has no encrypted page yet, and could not be told from one that lost its data.
  return Execute(u"pragma user_version = 1"_s);
}

void Connection::Close() {
  RollbackTrans();
  motore_->chiudi();
}

bool Connection::aperta() const {
  return motore_->db != nullptr;
}

Errore Connection::Execute(const QString& sql, const QVariantList& valori) {
  return motore_->esegui(sql, valori).errore();
}

Esito<qint64> Connection::esegui_contando(const QString& sql, const QVariantList& valori) {
  return motore_->esegui(sql, valori);
}

Esito<bool> Connection::restituisce_righe(const QString& sql) {
  const auto s = motore_->prendi(sql);
  if (s.fallito()) return s.errore();
  return sqlite3_column_count((*s)->grezzo()) > 0;
}

Errore Connection::BeginTrans() {
  if (motore_->transazione) return {SQLITE_ERROR, u"Una transazione è già aperta"_s};
  // The right to write is taken at once: a transaction that has read must not fail for it half way.
  Errore errore = Execute(u"begin immediate"_s);
  motore_->transazione = !errore.fallito();
  return errore;
}

Errore Connection::CommitTrans() {
  if (!motore_->transazione) return {SQLITE_ERROR, u"Nessuna transazione aperta"_s};
  Errore errore = Execute(u"commit"_s);
  if (errore.fallito()) RollbackTrans();
  motore_->transazione = false;
  return errore;
}

void Connection::RollbackTrans() {
  if (!motore_->transazione) return;
  motore_->transazione = false;
  if (sqlite3_get_autocommit(motore_->db) == 0) static_cast<void>(Execute(u"rollback"_s));
}

bool Connection::in_transazione() const {
  return motore_->transazione;
}

void Connection::attesa_blocco(int ms) {
  motore_->attesa_ms = ms;
  if (aperta()) sqlite3_busy_timeout(motore_->db, ms);
}

quint64 Connection::versione_tabella(const QString& tabella) const {
  return motore_->versione(tabella);
}

qint64 Connection::righe_scritte() const {
  return aperta() ? sqlite3_total_changes(motore_->db) : 0;
}

qint64 Connection::istruzioni() const {
  return motore_->istruzioni;
}

SenzaAttesa::SenzaAttesa(Connection& connessione)
    : connessione_(connessione), prima_(connessione.motore_->attesa_ms) {
  connessione_.attesa_blocco(0);
}

SenzaAttesa::~SenzaAttesa() {
  connessione_.attesa_blocco(prima_);
}

Errore in_transazione(Connection& c, const std::function<Errore()>& lavoro) {
  if (Errore e = c.BeginTrans(); e.fallito()) return e;
  Errore errore = lavoro();
  if (!errore.fallito()) return c.CommitTrans();
  c.RollbackTrans();
  return errore;
}

Errore tutto_o_niente(Connection& c, const std::function<Errore()>& lavoro) {
  if (!c.in_transazione()) return in_transazione(c, lavoro);
  if (Errore e = c.Execute(u"savepoint parte"_s); e.fallito()) return e;
  Errore errore = lavoro();
  if (errore.fallito()) {
    static_cast<void>(c.Execute(u"rollback to parte"_s));
    c.motore_->modifiche.tutte();
  }
  Errore chiusura = c.Execute(u"release parte"_s);
  return errore.fallito() ? errore : chiusura;
}

}  // namespace lokera
