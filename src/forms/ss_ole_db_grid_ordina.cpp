// The order in which a person looks at a list.
#include <algorithm>

#include "forms/formato.h"
#include "forms/ss_ole_db_grid.h"
#include "store/confronto.h"

namespace lokera {

namespace {

/// What a row is compared by, and which one it is: nothing comes before numbers, they before dates and these
/// before words.
struct Chiave {
  enum class Specie { nulla, numero, data, testo };

  int riga = 0;
  Specie specie = Specie::nulla;
  double numero = 0;
  quint64 inizio = 0;  ///< of a text, which decides most
  QByteArrayView testo;

  int confronta(const Chiave& altra) const {
    if (specie != altra.specie) return specie < altra.specie ? -1 : 1;
    if (numero != altra.numero) return numero < altra.numero ? -1 : 1;
    if (inizio != altra.inizio) return inizio < altra.inizio ? -1 : 1;
    return lokera::confronta(testo, altra.testo);
  }
};

void riconosci(Chiave& chiave, QByteArrayView cella, bool numeri) {
  const QByteArrayView testo = cella.trimmed();
  if (testo.isEmpty()) return;
  if (numeri) {
    if (const auto n = leggi_numero(QString::fromUtf8(testo))) {
      chiave.specie = Chiave::Specie::numero;
      chiave.numero = *n;
      return;
    }
  }
  if (const QDateTime data = leggi_data_mostrata(testo); data.isValid()) {
    chiave.specie = Chiave::Specie::data;
    chiave.numero = static_cast<double>(data.toMSecsSinceEpoch());
    return;
  }
  chiave.specie = Chiave::Specie::testo;
  chiave.inizio = inizio_confronto(testo);
  chiave.testo = testo;
}

}  // namespace

void SSOleDBGrid::utente_ordina(int colonna) {
  if (!Enabled() || !OrdinabileDaTestata()) return;
  Update();
  if (colonna < 0 || colonna >= Cols()) return;
  const Colonna& c = Columns(colonna);
  const bool numeri = c.allineamento == Allineamento::destra;
  std::vector<Chiave> chiavi(static_cast<size_t>(Rows()));
  std::vector<QByteArray> calcolate;
  if (c.campo.isEmpty()) calcolate.resize(chiavi.size());
  for (size_t i = 0; i < chiavi.size(); ++i) {
    const int riga = chiavi[i].riga = static_cast<int>(i);
    if (!calcolate.empty()) calcolate[i] = mostrata(aspetto(riga), riga, colonna).toUtf8();
    riconosci(chiavi[i], calcolate.empty() ? righe_.cella(riga, colonna) : calcolate[i], numeri);
  }
  const bool decrescente = ordine_.colonna == colonna && !ordine_.decrescente;
  std::ranges::sort(chiavi, [decrescente](const Chiave& a, const Chiave& b) {
    const int esito = decrescente ? b.confronta(a) : a.confronta(b);
    return esito != 0 ? esito < 0 : a.riga < b.riga;
  });
  std::vector<int> ordine(chiavi.size());
  std::ranges::transform(chiavi, ordine.begin(), &Chiave::riga);
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
