#include "forms/ss_ole_db_combo.h"

#include <algorithm>
#include <utility>

namespace lokera {

void SSOleDBCombo::imposta_colonne(std::vector<Colonna> colonne) {
  colonne_ = std::move(colonne);
  notifica();
}

void SSOleDBCombo::imposta_colonna(int i, const Colonna& colonna) {
  colonne_[static_cast<size_t>(i)] = colonna;
  notifica();
}

void SSOleDBCombo::RemoveAll() {
  voci_.clear();
  notifica();
}

void SSOleDBCombo::AddItem(const QStringList& voce) {
  voci_.push_back(voce);
  notifica();
}

int SSOleDBCombo::voce_corrente() const {
  const auto it = std::ranges::find_if(voci_, [&](const QStringList& v) { return v.value(0) == Text(); });
  return it == voci_.end() ? -1 : static_cast<int>(it - voci_.begin());
}

void SSOleDBCombo::utente_sceglie_voce(int voce) {
  if (voce < 0 || voce >= static_cast<int>(voci_.size())) return;
  Text = voci_[static_cast<size_t>(voce)].value(0);
  if (CloseUp) CloseUp(voce);
}

}  // namespace lokera
