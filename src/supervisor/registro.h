#pragma once

#include <QDateTime>
#include <QString>

#include "store/database.h"

namespace lokera {

/// One withdrawal ('P') or return ('R'), as it goes into the book.
struct Movimento {
  QString operatore;     ///< card code
  QString intestazione;  ///< the holder's name at that moment
  QString chiave;        ///< key code
  char operazione = 'P';
  QDateTime data;  ///< invalid when the cabinet's own date was none
};

/// What the registry says of a key. One that it doesn't know, or that has no place yet, has -1 for it.
struct ChiaveRegistrata {
  QString descrizione;
  qlonglong lokera = -1;
  qlonglong posizione = -1;  ///< counted from 0
};

/// Books movements: the key's row and the movement's row in one transaction, committed when the call returns
/// without a failure. A key that the registry doesn't know is booked all the same.
class Registro {
 public:
  explicit Registro(Database& db) : db_(db) {}
  Errore registra(const Movimento& movimento, ChiaveRegistrata& chiave);

 private:
  Errore aggiorna_chiave(const Movimento& movimento, ChiaveRegistrata& chiave);
  Errore aggiungi_movimento(const Movimento& movimento);
  Errore nuovo_id(qlonglong& id);
  Database& db_;
};

/// "dd/mm/yy hh.mm.ss" of a stored record as a date; invalid when it is none. Two-digit years 00 to 29 lie
/// after 2000, 30 to 99 before.
QDateTime data_transazione(const QString& data_ora);

}  // namespace lokera
