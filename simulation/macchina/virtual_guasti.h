#pragma once

#include <QByteArray>
#include <QList>

#include "platform/clock.h"
#include "simulation/comune/caso.h"

namespace lokera::simulazione {

/// How often what goes wrong, each in a thousand. The first two are drawn for each connection, `cade` for
/// each send of either side, the others for each send of the cabinet; `ritarda`, `perde`, `ripete` and
/// `altera` touch datagrams too.
struct Guasti {
  int rifiuta = 0;  ///< a connection is refused
  int muto = 0;     ///< a connection is never answered
  int ritarda = 0;  ///< late by up to `ritardo_massimo`
  int perde = 0;    ///< never arrives
  int spezza = 0;   ///< arrives in several pieces
  int unisce = 0;   ///< arrives together with the next one
  int ripete = 0;   ///< arrives twice
  int altera = 0;   ///< one byte is another, often not ASCII
  int cade = 0;     ///< the connection drops in the middle of it
  Monotonic ritardo_massimo = std::chrono::seconds(8);
};

/// What becomes of one send: what arrives, how much later than it should, and whether the connection ends
/// there.
struct Sorte {
  struct Arrivo {
    Monotonic ritardo;
    QByteArray dati;
  };
  QList<Arrivo> arrivi;
  bool trattiene = false;
  bool cade = false;
};

Sorte sorte_del_comando(const Guasti& guasti, Caso& caso, const QByteArray& dati);
Sorte sorte_della_risposta(const Guasti& guasti, Caso& caso, const QByteArray& dati);
Sorte sorte_del_datagramma(const Guasti& guasti, Caso& caso, const QByteArray& dati);

}  // namespace lokera::simulazione
