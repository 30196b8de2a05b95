#pragma once

#include <vector>

#include "forms/colonna.h"
#include "forms/tendina.h"

namespace lokera {

/// A drop-down list of several columns under a text that may also be typed.
class SSOleDBCombo : public Tendina {
 public:
  using Tendina::Tendina;
  void svuota() override { Text = QString(); }
  void traduci_titoli(const Traduzione& traduci) override;

  int DataFieldList = 0;       ///< the column that holds an entry's value
  int DataFieldToDisplay = 0;  ///< the one that is shown for it

  int Cols() const { return static_cast<int>(colonne_.size()); }
  const Colonna& Columns(int i) const { return colonne_[static_cast<size_t>(i)]; }
  void imposta_colonne(std::vector<Colonna> colonne);
  void imposta_colonna(int i, const Colonna& colonna);

  void AddItem(const QStringList& voce) { aggiungi(voce); }
  /// Its columns, but for hidden ones.
  QString riga(int voce) const override;
  bool solo_voci = false;  ///< the user chooses an entry and types nothing
  bool scrivibile() const override { return !solo_voci; }

  std::function<void(int voce)> CloseUp;  ///< the user chose this entry

 protected:
  int colonna_testo() const override { return DataFieldToDisplay; }
  int colonna_valore() const override { return DataFieldList; }
  void scelta(int voce) override {
    if (const auto chiusa = CloseUp) chiusa(voce);
  }

 private:
  std::vector<Colonna> colonne_;
};

}  // namespace lokera
