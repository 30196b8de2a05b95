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

void lcase(sqlite3_context* ctx, int /*n*/, sqlite3_value** v) {
  if (!nullo(v[0])) risultato(ctx, minuscolo(testo(v[0])));
}

void len(sqlite3_context* ctx, int /*n*/, sqlite3_value** v) {
  if (!nullo(v[0])) sqlite3_result_int64(ctx, testo(v[0]).size());
}

/// mid(text, from 1, characters), the characters left out for all the rest.
void mid(sqlite3_context* ctx, int n, sqlite3_value** v) {
  if (nullo(v[0])) return;
  const QString intero = testo(v[0]);
  const qsizetype da = std::max<qsizetype>(sqlite3_value_int(v[1]), 1) - 1;
  risultato(ctx, intero.mid(da, n > 2 ? std::max(sqlite3_value_int(v[2]), 0) : -1));
}

enum class Parte : int { anno, mese, giorno, ore, minuti, secondi };

int parte_di(const QDateTime& d, Parte parte) {
  switch (parte) {
    case Parte::anno:
      return d.date().year();
    case Parte::mese:
      return d.date().month();
    case Parte::giorno:
      return d.date().day();
    case Parte::ore:
      return d.time().hour();
    case Parte::minuti:
      return d.time().minute();
    case Parte::secondi:
      return d.time().second();
  }
  return 0;
}

template <Parte parte>
void parte_data(sqlite3_context* ctx, int /*n*/, sqlite3_value** v) {
  const QDateTime d = da_data_memorizzata(utf8(v[0]));
  if (d.date().isValid()) sqlite3_result_int(ctx, parte_di(d, parte));
}

struct Funzione {
  const char* nome;
  int argomenti;
  void (*corpo)(sqlite3_context*, int, sqlite3_value**);
};

constexpr std::array funzioni{
    Funzione{"like", 2, funzione_like},
    Funzione{"ucase", 1, ucase},
    Funzione{"upper", 1, ucase},
    Funzione{"lcase", 1, lcase},
    Funzione{"lower", 1, lcase},
    Funzione{"len", 1, len},
    Funzione{"mid", 2, mid},
    Funzione{"mid", 3, mid},
    Funzione{"year", 1, parte_data<Parte::anno>},
    Funzione{"month", 1, parte_data<Parte::mese>},
    Funzione{"day", 1, parte_data<Parte::giorno>},
    Funzione{"hour", 1, parte_data<Parte::ore>},
    Funzione{"minute", 1, parte_data<Parte::minuti>},
    Funzione{"second", 1, parte_data<Parte::secondi>},
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
