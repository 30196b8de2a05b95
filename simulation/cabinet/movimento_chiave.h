#pragma once

#include <QByteArray>
#include <QDateTime>

namespace lokera::simulazione {

constexpr char prelievo = 'P';
constexpr char restituzione = 'R';

/// One key taken or put back. Codes are ten characters; the moment is read from the cabinet's own clock.
struct MovimentoChiave {
  char tipo = prelievo;
  QByteArray tessera;
  QByteArray chiave;
  QDateTime momento;
};

}  // namespace lokera::simulazione
