#pragma once

#include <QDateTime>
#include <QString>

namespace lokera {

/// The letters of `movimenti.operazione`.
constexpr char tipo_prelievo = 'P';
constexpr char tipo_riconsegna = 'R';

/// One withdrawal or return, as it goes into the book.
struct Movimento {
  QString operatore;     ///< card code
  QString intestazione;  ///< the holder's name at that moment
  QString chiave;        ///< key code
  char operazione = tipo_prelievo;
  QDateTime data;  ///< invalid when the cabinet's own date was none
};

/// What the registry says of a key. One that it doesn't know, or that has no place yet, has -1 for it.
struct ChiaveRegistrata {
  QString descrizione;
  qlonglong lokera = -1;
  qlonglong posizione = -1;  ///< counted from 0
};

}  // namespace lokera
