#pragma once

#include <QStringList>

#include <functional>
#include <vector>

#include "forms/ss_ole_db_grid.h"

namespace lokera {

/// A text with a drop-down list of several columns. Entries and columns are counted from 0.
class SSOleDBCombo : public Controllo {
 public:
  using Controllo::Controllo;
  Proprieta<QString> Text{*this, {}};

  int Cols() const { return static_cast<int>(colonne_.size()); }
  const Colonna& Columns(int i) const { return colonne_[static_cast<size_t>(i)]; }
  void imposta_colonne(std::vector<Colonna> colonne);
  void imposta_colonna(int i, const Colonna& colonna);

  void RemoveAll();
  void AddItem(const QStringList& voce);
  const std::vector<QStringList>& voci() const { return voci_; }

  const QString& Value() const {
    return Text();
  }                           ///< the first column of the entry that was chosen, or what was typed
  int voce_corrente() const;  ///< -1 when the text is none of the entries

  void utente_sceglie_voce(int voce);  ///< from the view: the text becomes the entry's first column
  std::function<void(int voce)> CloseUp;

 private:
  std::vector<Colonna> colonne_;
  std::vector<QStringList> voci_;
};

}  // namespace lokera
