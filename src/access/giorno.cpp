#include "access/giorno.h"

#include <array>

#include "store/recordset.h"

namespace lokera {

using namespace Qt::StringLiterals;

namespace {

// What a special day of a year counts as, 0 for every year; left empty when the date is none.
Errore giorno_di_anno(Database& db, QDate oggi, int anno, QString& speciale) {
  Recordset rs;
  if (Errore e = rs.Open(u"select * from giorni_particolari where GG = ? and MM =  ? and AAAA = ?"_s,
                         db.connessione_db, {oggi.day(), oggi.month(), anno});
      e.fallito()) {
    return e;
  }
  if (!rs.eof()) speciale = rs.testo(u"giorno").trimmed();
  return {};
}

// A day of this very year wins over one of every year.
Errore giorno_speciale(Database& db, QDate oggi, QString& speciale) {
  const Errore e = giorno_di_anno(db, oggi, oggi.year(), speciale);
  return e.fallito() || !speciale.isEmpty() ? e : giorno_di_anno(db, oggi, 0, speciale);
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
  Errore e = tipo_della_data(db_, traduttore_, orologio_.adesso().date(), giorno_corrente_);
  // Only a missing table or column is an older file; behind a lock there may be a special day.
  if (e.classe == ClasseErrore::schema && !aggiorna_database(db_).fallito())
    e = tipo_della_data(db_, traduttore_, orologio_.adesso().date(), giorno_corrente_);
  return e;
}

Errore tipo_della_data(Database& db, Traduttore& traduttore, QDate data, QString& giorno) {
  // In the other language no band would be found, and without a band every hour is good.
  Errore errore = traduttore.leggibile();
  giorno = traduttore.traduci(nome_giorno(data.dayOfWeek()));
  QString speciale;
  if (!errore.fallito()) errore = giorno_speciale(db, data, speciale);
  if (!errore.fallito() && !speciale.isEmpty()) giorno = speciale;
  return errore;
}

}  // namespace lokera
