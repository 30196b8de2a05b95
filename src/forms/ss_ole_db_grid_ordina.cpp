// The order in which a person looks at a list.
#include <algorithm>
#include <numeric>

#include "forms/formato.h"
#include "forms/ss_ole_db_grid.h"
#include "store/confronto.h"

namespace lokera {

namespace {

/// What a cell is compared by: nothing comes before numbers, and they before words.
struct Chiave {
  enum class Specie { nulla, numero, testo } specie = Specie::nulla;
  double numero = 0;
  QByteArray testo;

  bool operator<(const Chiave& altra) const {
    if (specie != altra.specie) return specie < altra.specie;
    return specie == Specie::numero ? numero < altra.numero : confronta(testo, altra.testo) < 0;
  }
};

/// Lists show a date as dd/mm/yyyy, its time behind it.
bool e_data(const QByteArray& t) {
  return t.size() >= 10 && t[2] == '/' && t[5] == '/';
}

Chiave chiave(const QByteArray& cella, bool numeri) {
  const QByteArray testo = cella.trimmed();
  if (testo.isEmpty()) return {};
  if (numeri) {
    if (const auto n = leggi_numero(QString::fromUtf8(testo))) return {Chiave::Specie::numero, *n, {}};
  }
  if (!e_data(testo)) return {Chiave::Specie::testo, 0, testo};
  return {Chiave::Specie::testo, 0,
          testo.sliced(6, 4) + testo.sliced(3, 2) + testo.sliced(0, 2) + testo.sliced(10)};
}

}  // namespace

void SSOleDBGrid::utente_ordina(int colonna) {
  if (!Enabled() || !OrdinabileDaTestata()) return;
  Update();
  if (colonna < 0 || colonna >= Cols()) return;
  const Colonna& c = Columns(colonna);
  const auto conta = static_cast<size_t>(Rows());
  std::vector<Chiave> chiavi;
  chiavi.reserve(conta);
  for (int i = 0; i < Rows(); ++i) {
    const QByteArray cella = c.campo.isEmpty() ? mostrata(aspetto(i), i, colonna).toUtf8()
                                               : righe_.cella(i, colonna).toByteArray();
    chiavi.push_back(chiave(cella, c.allineamento == Allineamento::destra));
  }
  const bool decrescente = ordine_.colonna == colonna && !ordine_.decrescente;
  std::vector<int> ordine(conta);
  std::iota(ordine.begin(), ordine.end(), 0);
  std::ranges::stable_sort(ordine, [&](int a, int b) {
    if (decrescente) std::swap(a, b);
    return chiavi[static_cast<size_t>(a)] < chiavi[static_cast<size_t>(b)];
  });
  disponi(ordine);
  ordine_ = {colonna, decrescente};
  if (!vista_) return;
  vista_->righe_cambiate();
  vista_->riga_corrente(riga_);
}

void SSOleDBGrid::disponi(const std::vector<int>& ordine) {
  righe_.riordina(ordine);
  selezionate_.clear();
  if (riga_ >= 0) riga_ = static_cast<int>(std::ranges::find(ordine, riga_) - ordine.begin());
}

}  // namespace lokera
