#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>

#include <optional>
#include <vector>

#include "store/connection.h"

namespace lokera {

/// The translation table as it was last read, in the order of its rows.
class Vocabolario {
 public:
  /// Reads the whole table.
  Errore leggi(Connection& connessione);
  /// Adds a row at the end.
  void aggiungi(QByteArrayView italiano, QByteArrayView inglese);

  /// The translation in the first row whose Italian text is like `testo`, in which % and _ act as wildcards.
  /// None when there is no such row.
  std::optional<QByteArrayView> trova(QByteArrayView testo) const;
  bool ha_traduzione(QByteArrayView inglese) const;  ///< whether some row's translation is this text

 private:
  struct Voce {
    qsizetype inizio, italiano, inglese;  ///< where the two texts begin, and their lengths
  };
  QByteArrayView italiano(const Voce& v) const { return QByteArrayView(testi_).sliced(v.inizio, v.italiano); }
  QByteArrayView inglese(const Voce& v) const {
    return QByteArrayView(testi_).sliced(v.inizio + v.italiano, v.inglese);
  }

  QByteArray testi_;
  std::vector<Voce> voci_;
  QHash<quint64, qsizetype> prima_;  ///< first row of each text, by the hash of its letters
};

}  // namespace lokera
