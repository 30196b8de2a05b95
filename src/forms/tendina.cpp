#include "forms/tendina.h"

#include <algorithm>

#include "forms/formato.h"
#include "forms/visita_controlli.h"

namespace lokera {

void Tendina::accetta(VisitaControlli& visita) {
  visita.visita(*this);
}

void Tendina::mostra_valore(const QVariant& valore, const QString&) {
  Value(formatta(valore));
}

void Tendina::RemoveAll() {
  voci_.clear();
  scelta_ = -1;
  notifica();
}

void Tendina::aggiungi(const QStringList& voce) {
  voci_.push_back(voce);
  notifica();
}

int Tendina::voce_corrente() const {
  const int colonna = colonna_testo();
  if (scelta_ >= 0 && cella(scelta_, colonna) == Text()) return scelta_;
  const auto it = std::ranges::find_if(voci_, [&](const auto& v) { return v.value(colonna) == Text(); });
  return it == voci_.end() ? -1 : static_cast<int>(it - voci_.begin());
}

QString Tendina::Value() const {
  const int voce = voce_corrente();
  return voce < 0 ? Text() : cella(voce, colonna_valore());
}

void Tendina::Value(const QString& valore) {
  const int colonna = colonna_valore();
  const auto it = std::ranges::find_if(voci_, [&](const auto& v) { return v.value(colonna) == valore; });
  if (it != voci_.end()) return mostra(static_cast<int>(it - voci_.begin()));
  scelta_ = -1;
  Text = valore;
}

void Tendina::mostra(int voce) {
  scelta_ = voce;
  Text = cella(voce, colonna_testo());
}

void Tendina::utente_sceglie_voce(int voce) {
  if (voce < 0 || voce >= static_cast<int>(voci_.size())) return;
  mostra(voce);
  scelta(voce);
}

}  // namespace lokera
