#pragma once

#include <QString>

#include <vector>

#include "simulation/cabinet/cabinet.h"

namespace lokera::simulazione {

/// Keys and cards of a site, as a script reads them from the console's database, so that the codes agree. One
/// a line, fields separated by tabs; empty lines and lines that start with "#" don't count:
///
///   chiave   cabinet  position  code
///   tessera  code     [group]
///
/// The cabinet is its address, with or without leading zeros, or its place among the cabinets, from 1.
struct Sito {
  struct Chiave {
    QString cabinet;
    int posizione = 0;
    QByteArray codice;
  };
  std::vector<Chiave> chiavi;
  std::vector<QByteArray> tessere;

  /// Hangs the keys of the cabinet that is number `ordine` (from 1) of the installation.
  void appendi(Cabinet& cabinet, int ordine, bool registra) const;
};

/// What was wrong with a file, with its line; empty when nothing was.
QString leggi_sito(QByteArrayView testo, Sito& sito);

/// Whether a file's name for a cabinet means the one at `indirizzo`, number `ordine` of the installation.
bool nomina_cabinet(const QString& nome, const QString& indirizzo, int ordine);

/// The lines that count, cut at the tabs, each with its number in front.
std::vector<std::pair<int, QList<QByteArray>>> righe_di(QByteArrayView testo);

}  // namespace lokera::simulazione
