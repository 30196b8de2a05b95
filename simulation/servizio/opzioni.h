#pragma once

#include <QStringList>

#include "simulation/cabinet/comportamento.h"
#include "simulation/sito/richieste.h"
#include "simulation/sito/sito.h"

namespace lokera::simulazione {

/// What `simulatore` was asked for.
struct OpzioniSimulatore {
  QStringList indirizzi;  ///< all within 127.0.0.0/8; with `broadcast` one can stand there twice
  QStringList gestiti;    ///< those of them that ask the console
  int seriale = 1;        ///< of the first, the others follow
  quint64 seme = 1;
  int eventi_ora = 60;
  int durata_s = 600;
  int prelievi_s = 0;  ///< nobody takes a key after this; 0 for the whole time
  QString registro;
  QString archivio;
  QString lettore;  ///< link to a desk reader; empty for none
  int lettore_ogni_s = 5;
  bool parla = false;
  bool registra_chiavi = true;
  bool fabbrica = false;   ///< cabinets as they come out of their box
  bool broadcast = false;  ///< they hear what is sent to all
  bool aiuto = false;
  Comportamento comportamento;
  Sito sito;
  std::vector<RigaRichiesta> richieste;
};

/// Fills `opzioni`; on a mistake returns what to tell the person, otherwise nothing.
QString leggi_opzioni(const QStringList& argomenti, OpzioniSimulatore& opzioni);

QString testo_aiuto();

}  // namespace lokera::simulazione
