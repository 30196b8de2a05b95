#pragma once

#include <QDate>
#include <QStringList>

#include <map>
#include <set>

#include "store/connection.h"

namespace lokera::simulazione {

struct ChiaveAttesa {
  qlonglong lokera = 0;
  qlonglong posizione = 0;
  QString descrizione;
  qlonglong gruppo = 0;
  bool operator==(const ChiaveAttesa&) const = default;
};

struct TesseraAttesa {
  QString intestazione;
  QDate dal, al;
  qlonglong gruppo = 0;
  qlonglong massimo = 0;
  std::set<qlonglong> gruppi;  ///< of keys
  bool operator==(const TesseraAttesa&) const = default;
};

/// What the person at the desk knows: what the two registries must hold, and what is left to be done.
struct RegistriAttesi {
  std::map<QString, ChiaveAttesa> chiavi;
  std::map<QString, TesseraAttesa> tessere;
  QStringList eliminate;  ///< cards that must leave

  /// Cabinet and position where a key hung before it was moved: its record stays there.
  std::set<std::pair<qlonglong, qlonglong>> lasciate;
  /// Cabinet and key whose "registra" or "elimina" failed; no key for one whose full update left cards
  /// waiting.
  std::set<std::pair<qlonglong, QString>> da_ripetere;
};

/// The registries as the file has them.
Errore leggi_registri(Connection& c, RegistriAttesi& r);

/// What of `r` the file has otherwise.
QStringList differenze_registri(Connection& c, const RegistriAttesi& r);

}  // namespace lokera::simulazione
