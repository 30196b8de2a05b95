#include "bench/nudo.h"

#include "bench/misura.h"
#include "store/database.h"
#include "store/funzioni_sql.h"

namespace lokera::bench {

Nudo::Nudo(const QString& file) {
  const QByteArray chiave = password_database().toUtf8();
  if (sqlite3_open_v2(file.toUtf8().constData(), &db_, SQLITE_OPEN_READWRITE, nullptr) != SQLITE_OK ||
      sqlite3_key(db_, chiave.constData(), static_cast<int>(chiave.size())) != SQLITE_OK ||
      registra_funzioni(db_) != SQLITE_OK)
    rinuncia("il file non si apre");
  sqlite3_busy_timeout(db_, Connection::attesa_blocco_ms);
  esegui("pragma cipher_compatibility = 3");
  esegui("select count(*) from sqlite_master");
  esegui("pragma journal_mode = delete");
  esegui("pragma synchronous = extra");
  esegui("pragma cache_size = -65536");
  esegui("pragma temp_store = memory");
}

Nudo::~Nudo() {
  sqlite3_close_v2(db_);
}

void Nudo::esegui(const char* sql) {
  if (sqlite3_exec(db_, sql, nullptr, nullptr, nullptr) != SQLITE_OK) rinuncia(sqlite3_errmsg(db_));
}

Istruzione::Istruzione(Nudo& nudo, const char* sql) {
  if (sqlite3_prepare_v2(nudo.db(), sql, -1, &stmt_, nullptr) != SQLITE_OK)
    rinuncia(sqlite3_errmsg(nudo.db()));
}

Istruzione& Istruzione::lega(int posizione, QByteArrayView testo) {
  sqlite3_bind_text(stmt_, posizione, testo.data(), static_cast<int>(testo.size()), SQLITE_STATIC);
  return *this;
}

Istruzione& Istruzione::lega(int posizione, qlonglong numero) {
  sqlite3_bind_int64(stmt_, posizione, numero);
  return *this;
}

bool Istruzione::passo() {
  const int rc = sqlite3_step(stmt_);
  if (rc != SQLITE_ROW && rc != SQLITE_DONE) rinuncia(sqlite3_errmsg(sqlite3_db_handle(stmt_)));
  return rc == SQLITE_ROW;
}

QByteArrayView Istruzione::testo(int colonna) const {
  const auto* t = reinterpret_cast<const char*>(sqlite3_column_text(stmt_, colonna));
  return t == nullptr ? QByteArrayView() : QByteArrayView(t, sqlite3_column_bytes(stmt_, colonna));
}

qsizetype Istruzione::leggi_tutto() {
  qsizetype byte = 0;
  while (passo()) {
    for (int i = 0; i < colonne(); ++i) byte += testo(i).size();
  }
  azzera();
  return byte;
}

}  // namespace lokera::bench
