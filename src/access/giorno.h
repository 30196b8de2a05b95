#pragma once

#include <QString>

#include "forms/traduttore.h"
#include "platform/clock.h"
#include "store/database.h"

namespace lokera {

/// Today's day type: the weekday's name in the language of the interface, or what a special day counts as.
class Giorno {
 public:
  Giorno(Database& db, const Clock& orologio, Traduttore& traduttore);

  /// Works out `giorno_corrente`. Where the file lacks the special days it is older than the program: the
  /// migration runs and they are asked for again. When they can't be read the weekday stands, and the failure
  /// is returned for those who must not decide on a guess.
  Errore tipo_giorno();

  /// What the last call found; empty before the first.
  const QString& giorno_corrente() const { return giorno_corrente_; }

 private:
  Errore cerca();

  Database& db_;
  const Clock& orologio_;
  Traduttore& traduttore_;
  QString giorno_corrente_;
};

/// The day type of that date.
Esito<QString> tipo_della_data(Database& db, Traduttore& traduttore, QDate data);

/// The Italian name of a weekday, 1 Monday to 7 Sunday.
QString nome_giorno(int giorno_settimana);

}  // namespace lokera
