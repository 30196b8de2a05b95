#include "store/funzioni_sql.h"

#include <QDateTime>

#include <array>

#include "store/confronto.h"
#include "store/date_jet.h"

namespace lokera {

namespace {

QByteArrayView utf8(sqlite3_value* v) {
  const auto* testo = reinterpret_cast<const char*>(sqlite3_value_text(v));
  return {testo, testo == nullptr ? 0 : sqlite3_value_bytes(v)};
}

bool nullo(sqlite3_value* v) {
  return sqlite3_value_type(v) == SQLITE_NULL;
}

int collazione(void* /*dati*/, int na, const void* a, int nb, const void* b) {
  return confronta(QByteArrayView(static_cast<const char*>(a), na),
                   QByteArrayView(static_cast<const char*>(b), nb));
}

void elimina_modello(void* p) {
  delete static_cast<std::vector<char32_t>*>(p);
}

/// `x like y` calls like(y, x). The pattern is unfolded once for a whole statement.
void funzione_like(sqlite3_context* ctx, int /*n*/, sqlite3_value** v) {
  if (nullo(v[0]) || nullo(v[1])) return;
  auto* modello = static_cast<std::vector<char32_t>*>(sqlite3_get_auxdata(ctx, 0));
  if (modello != nullptr) return sqlite3_result_int(ctx, somiglia(*modello, utf8(v[1])) ? 1 : 0);
  modello = new std::vector<char32_t>(lettere_piegate(utf8(v[0])));
  sqlite3_result_int(ctx, somiglia(*modello, utf8(v[1])) ? 1 : 0);
  sqlite3_set_auxdata(ctx, 0, modello, elimina_modello);
}

void risultato(sqlite3_context* ctx, const QString& testo) {
  sqlite3_result_text16(ctx, testo.utf16(), static_cast<int>(testo.size() * 2), SQLITE_TRANSIENT);
}

QString testo(sqlite3_value* v) {
  return QString::fromUtf8(utf8(v));
}

void ucase(sqlite3_context* ctx, int /*n*/, sqlite3_value** v) {
  if (!nullo(v[0])) risultato(ctx, maiuscolo(testo(v[0])));
}

/// mid(text, from 1, characters).
void mid(sqlite3_context* ctx, int /*n*/, sqlite3_value** v) {
  if (nullo(v[0])) return;
  const qsizetype da = std::max(sqlite3_value_int(v[1]), 1) - 1;
  risultato(ctx, testo(v[0]).mid(da, std::max(sqlite3_value_int(v[2]), 0)));
}

template <int (QDate::*parte)() const>
void parte_data(sqlite3_context* ctx, int /*n*/, sqlite3_value** v) {
  const QDate d = da_data_memorizzata(utf8(v[0])).date();
  if (d.isValid()) sqlite3_result_int(ctx, (d.*parte)());
}

struct Funzione {
  const char* nome;
  int argomenti;
  void (*corpo)(sqlite3_context*, int, sqlite3_value**);
};

constexpr std::array funzioni{
    Funzione{"like", 2, funzione_like},
    Funzione{"ucase", 1, ucase},
    Funzione{"mid", 3, mid},
    Funzione{"year", 1, parte_data<&QDate::year>},
    Funzione{"month", 1, parte_data<&QDate::month>},
};

}  // namespace

int registra_funzioni(sqlite3* db) {
  int rc = sqlite3_create_collation_v2(db, "senza_caso", SQLITE_UTF8, nullptr, collazione, nullptr);
  for (const Funzione& f : funzioni) {
    if (rc != SQLITE_OK) return rc;
    rc = sqlite3_create_function_v2(db, f.nome, f.argomenti, SQLITE_UTF8 | SQLITE_DETERMINISTIC, nullptr,
                                    f.corpo, nullptr, nullptr, nullptr);
  }
  return rc;
}

}  // namespace lokera
