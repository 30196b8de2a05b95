#pragma once

#include <vector>

#include "forms/ss_ole_db_grid.h"

namespace lokera {

/// What a list shows, as its prints and exports take it: its visible columns in their order, row after row,
/// computed cells included. The list must not change meanwhile.
class ElencoMostrato {
 public:
  struct Colonna {
    int indice;  ///< in the list, from 0
    QString titolo;
    int larghezza;  ///< the list's units
    Allineamento allineamento;
    bool spunta;
  };

  explicit ElencoMostrato(const SSOleDBGrid& grd);

  const std::vector<Colonna>& colonne() const { return colonne_; }
  int righe() const { return grd_.Rows(); }

  /// Takes the row, counted from 0. What `cella` returns holds until the next one is taken.
  void prendi(int riga);
  /// The cell of the row in a visible column, counted from 0; a check box holds "-1" or "0".
  QByteArrayView cella(size_t colonna) const { return celle_[colonna]; }
  /// The same for a line of text: a line break inside the cell is a blank.
  QString testo(size_t colonna) const;

 private:
  void dividi(QByteArrayView riga);

  const SSOleDBGrid& grd_;
  std::vector<Colonna> colonne_;
  std::vector<QByteArrayView> della_riga_;  ///< of every column of the list
  std::vector<QByteArrayView> celle_;
  std::vector<QByteArray> calcolate_;
};

/// Line breaks and other control characters become blanks.
void in_una_riga(QByteArray& testo);

}  // namespace lokera
