#include "access/giorno.h"

#include <array>

#include "store/recordset.h"

namespace lokera {

namespace {

// What a special day counts as; left empty when the date is none.
Errore giorno_speciale(Database& db, QDate oggi, int anno, QString& speciale) {
  Recordset rs;
  if (Errore e =
          rs.Open(QStringLiteral("select * from giorni_particolari where GG = ? and MM =  ? and AAAA = ?"),
                  db.connessione_db, {oggi.day(), oggi.month(), anno})) {
    return e;
  }
  if (!rs.eof()) speciale = rs.testo(u"giorno").trimmed();
  return {};
}

}  // namespace

QString nome_giorno(int giorno_settimana) {
  static const std::array<QString, 7> nomi = {QStringLiteral("Lunedì"),    QStringLiteral("Martedì"),
                                              QStringLiteral("Mercoledì"), QStringLiteral("Giovedì"),
                                              QStringLiteral("Venerdì"),   QStringLiteral("Sabato"),
                                              QStringLiteral("Domenica")};
  return nomi.at(static_cast<size_t>(giorno_settimana - 1));
}

Giorno::Giorno(Database& db, const Clock& orologio, Traduttore& traduttore)
    : db_(db), orologio_(orologio), traduttore_(traduttore) {}

Errore Giorno::tipo_giorno() {
  Errore e = tipo_della_data(db_, traduttore_, orologio_.adesso().date(), giorno_corrente_);
  if (e) aggiorna_database(db_);
  return e;
}

Errore tipo_della_data(Database& db, Traduttore& traduttore, QDate data, QString& giorno) {
  giorno = traduttore.traduci(nome_giorno(data.dayOfWeek()));
  QString speciale;
  if (Errore e = giorno_speciale(db, data, data.year(), speciale)) return e;
  // A day of this very year wins over one of every year.
  if (speciale.isEmpty()) {
    if (Errore e = giorno_speciale(db, data, 0, speciale)) return e;
  }
  if (!speciale.isEmpty()) giorno = speciale;
  return {};
}

}  // namespace lokera
