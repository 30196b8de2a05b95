#include <QFileInfo>
#include <QTemporaryFile>

#include "store/errori_motore.h"
#include "store/funzioni_sql.h"
#include "store/motore.h"

namespace lokera {

using namespace Qt::StringLiterals;

namespace {

constexpr ClasseErrore senza_diritti = ClasseErrore::diritti;

Errore file_apribile(const QString& file, bool nuovo) {
  const QFileInfo info(file);
  if (nuovo) {
    if (info.exists() && info.size() > 0) return {SQLITE_CANTOPEN, u"Il file esiste già: "_s + file};
    return {};
  }
  if (!info.isFile()) return {SQLITE_CANTOPEN, u"File non trovato: "_s + file};
  if (info.size() == 0) return {SQLITE_NOTADB, u"Il file è vuoto: "_s + file};
  if (!info.isReadable())
    return {SQLITE_PERM, u"Manca il diritto di leggere il file: "_s + file, senza_diritti};
  return {};
}

/// Who may not write would find out only when the first movement is lost: the engine falls back to reading
/// without a word. The journal lies beside the file, so the folder counts as well; what its permissions say
/// isn't always so, hence the try.
Errore scrivibile(sqlite3* db, const QString& file) {
  if (sqlite3_db_readonly(db, "main") != 0)
    return {SQLITE_READONLY, u"Manca il diritto di scrivere il file"_s, senza_diritti};
  QTemporaryFile prova(QFileInfo(file).canonicalPath() + u"/lokera-XXXXXX"_s);
  if (prova.open()) return {};
  return {SQLITE_READONLY, u"Manca il diritto di scrivere nella cartella del file"_s, senza_diritti};
}

struct Impostazione {
  const char* nome;
  const char* valore;
  const char* riletto;
};

/// A commit must outlive a power failure, and temporary data must not lie in clear on the disk.
constexpr Impostazione impostazioni[] = {
    {"journal_mode", "delete", "delete"},
    {"synchronous", "extra", "3"},
    {"cache_size", "-65536", "-65536"},
    {"temp_store", "memory", "2"},
};

}  // namespace

Errore Connection::Motore::apri(const QString& file, const QString& password, bool nuovo) {
  chiudi();
  Errore errore = file_apribile(file, nuovo);
  if (errore.fallito()) return errore;
  const int modo = SQLITE_OPEN_READWRITE | (nuovo ? SQLITE_OPEN_CREATE : 0);
  const int rc = sqlite3_open_v2(file.toUtf8().constData(), &db, modo, nullptr);
  errore = rc == SQLITE_OK ? scrivibile(db, file) : errore_motore(db, rc);
  if (!errore.fallito()) errore = imposta_file(password);
  if (!errore.fallito()) {
    sorveglia();
    return {};
  }
  chiudi();
  errore.descrizione += u" ("_s + file + u')';
  return errore;
}

Errore Connection::Motore::imposta_file(const QString& password) {
  sqlite3_extended_result_codes(db, 1);
  sqlite3_busy_timeout(db, attesa_ms);
  const QByteArray chiave = password.toUtf8();
  int rc = sqlite3_key(db, chiave.constData(), static_cast<int>(chiave.size()));
  if (rc == SQLITE_OK) rc = registra_funzioni(db);
  // A later release of the engine reads this form of file only when told; the present one passes over it.
  if (rc == SQLITE_OK) rc = sqlite3_exec(db, "pragma cipher_compatibility = 3", nullptr, nullptr, nullptr);
  // The first reading: here a wrong password and a damaged file show.
  if (rc == SQLITE_OK) rc = sqlite3_exec(db, "select count(*) from sqlite_master", nullptr, nullptr, nullptr);
  if (rc != SQLITE_OK) return errore_motore(db, rc);
  for (const Impostazione& i : impostazioni) {
    const QByteArray pragma = QByteArray("pragma ") + i.nome + " = " + i.valore;
    rc = sqlite3_exec(db, pragma.constData(), nullptr, nullptr, nullptr);
    if (rc != SQLITE_OK) return errore_motore(db, rc);
    if (Errore e = leggi_impostazione(i.nome, QString::fromLatin1(i.riletto)); e.fallito()) return e;
  }
  return {};
}

Errore Connection::Motore::leggi_impostazione(const char* nome, const QString& atteso) {
  const auto esito = prendi(u"pragma "_s + QString::fromLatin1(nome));
  if (esito.fallito()) return esito.errore();
  const auto& s = *esito;
  Errore errore;
  const int rc = sqlite3_step(s->grezzo());
  const bool riga = rc == SQLITE_ROW;
  if (!riga && rc != SQLITE_DONE) errore = errore_motore(db, rc);
  const QString letto = riga ? leggi_valore(s->grezzo(), 0, TipoCampo::testo).toString() : QString();
  s->azzera();
  if (errore.fallito() || letto == atteso) return errore;
  return {SQLITE_ERROR,
          u"Impostazione %1 non accettata dal database: %2"_s.arg(QString::fromLatin1(nome), letto)};
}

void Connection::Motore::sorveglia() {
  const auto riga = [](void* m, int, const char*, const char* tabella, sqlite3_int64) {
    static_cast<Motore*>(m)->modifiche.riga(tabella);
  };
  // What was read inside the transaction is no longer so.
  const auto annullata = [](void* m) { static_cast<Motore*>(m)->modifiche.tutte(); };
  sqlite3_update_hook(db, riga, this);
  sqlite3_rollback_hook(db, annullata, this);
}

}  // namespace lokera
