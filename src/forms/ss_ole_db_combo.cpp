#include "forms/ss_ole_db_combo.h"

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

void SSOleDBCombo::traduci_titoli(const Traduzione& traduci) {
  traduci_colonne(*this, traduci);
}

QString SSOleDBCombo::riga(int voce) const {
  QStringList celle = voci()[static_cast<size_t>(voce)];
  for (int i = Cols() - 1; i >= 0; --i)
    if (!Columns(i).Visible && i < celle.size()) celle.removeAt(i);
  return celle.join(u"   "_s);
}

}  // namespace lokera
