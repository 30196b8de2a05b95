#include "access/giorno.h"

#include <array>

#include "store/recordset.h"

namespace lokera {

using namespace Qt::StringLiterals;

namespace {

// What a special day of a year counts as, 0 for every year; empty when the date is none.
Esito<QString> giorno_di_anno(Database& db, QDate oggi, int anno) {
  Recordset rs;
  if (const Errore e = rs.Open(u"select * from giorni_particolari where GG = ? and MM =  ? and AAAA = ?"_s,
                               db.connessione_db, {oggi.day(), oggi.month(), anno});
      e.fallito())
    return e;
  return rs.eof() ? QString() : rs.testo(u"giorno").trimmed();
}

// A day of this very year wins over one of every year.
Esito<QString> giorno_speciale(Database& db, QDate oggi) {
  auto speciale = giorno_di_anno(db, oggi, oggi.year());
  return speciale.fallito() || !speciale->isEmpty() ? speciale : giorno_di_anno(db, oggi, 0);
}

}  // namespace

QString nome_giorno(int giorno_settimana) {
  static const std::array<QString, 7> nomi = {u"Lunedì"_s,  u"Martedì"_s, u"Mercoledì"_s, u"Giovedì"_s,
                                              u"Venerdì"_s, u"Sabato"_s,  u"Domenica"_s};
  return nomi.at(static_cast<size_t>(giorno_settimana - 1));
}

Giorno::Giorno(Database& db, const Clock& orologio, Traduttore& traduttore)
    : db_(db), orologio_(orologio), traduttore_(traduttore) {}

Errore Giorno::tipo_giorno() {
  Errore e = cerca();
  // Only a missing table or column is an older file; behind a lock there may be a special day.
  if (e.classe == ClasseErrore::schema && !aggiorna_database(db_).fallito()) e = cerca();
  return e;
}

Errore Giorno::cerca() {
  const QDate oggi = orologio_.adesso().date();
  const auto tipo = tipo_della_data(db_, traduttore_, oggi);
  giorno_corrente_ = tipo.fallito() ? traduttore_.traduci(nome_giorno(oggi.dayOfWeek())) : *tipo;
  return tipo.errore();
}

Esito<QString> tipo_della_data(Database& db, Traduttore& traduttore, QDate data) {
  // In the other language no band would be found, and without a band every hour is good.
  if (const Errore e = traduttore.leggibile(); e.fallito()) return e;
  auto speciale = giorno_speciale(db, data);
  if (speciale.fallito() || !speciale->isEmpty()) return speciale;
  return traduttore.traduci(nome_giorno(data.dayOfWeek()));
}

}  // namespace lokera
