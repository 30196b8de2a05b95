#pragma once

#include <QString>
#include <QTemporaryDir>

#include "store/connection.h"

namespace lokera::bench {

/// What the file of a measurement holds.
struct Misure {
  int lokere = 1;
  int chiavi = 0;          ///< spread over the cabinets and the key groups in turn
  int tessere = 0;         ///< spread over the operator groups in turn
  int gruppi_chiavi = 10;  ///< every card may use some of them, see `gruppi_per_tessera`
  int gruppi_operatori = 1;
  int gruppi_per_tessera = 1;
  int movimenti = 0;            ///< in the order of their dates
  QString giorno = {};          ///< day type of the bands; none without one
  bool fasce_di_notte = false;  ///< a band for each pair of groups: closed at one at night, or open all day
};

/// A delivered database in a folder of its own, filled; it goes away with the object. A failure ends the
/// program.
class SitoMisure {
 public:
  explicit SitoMisure(const Misure& misure);

  QString cartella() const { return cartella_.path(); }
  QString file() const;
  /// A second file with the same content.
  QString copia(const QString& nome) const;

  /// The fifteen characters of a cabinet's address, `lokera` from 1.
  static QString indirizzo(int lokera);
  /// Codes of ten characters.
  static QString tessera(int i);
  static QString chiave(int i);

 private:
  Errore riempi(Connection& c) const;
  Errore lokere(Connection& c) const;
  Errore chiavi(Connection& c) const;
  Errore tessere(Connection& c) const;
  Errore fasce(Connection& c) const;
  Errore movimenti(Connection& c) const;

  Misure misure_;
  QTemporaryDir cartella_;
};

}  // namespace lokera::bench
