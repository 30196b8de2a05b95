// The order in which a person looks at a list.
#include <algorithm>
#include <cstring>

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
  QByteArrayView testo;
  qsizetype da = 0, lunga = 0;  ///< of a text, in the keys of all
  quint64 inizio = 0;           ///< the first letters of it, which decide most
};

/// All the rows of a column.
class Chiavi {
 public:
  explicit Chiavi(int righe) { chiavi_.reserve(static_cast<size_t>(righe)); }
  void aggiungi(QByteArrayView cella, bool numeri);
  std::vector<int> in_ordine(bool decrescente);

 private:
  void riconosci(Chiave& chiave, QByteArrayView testo, bool numeri);
  int confronta(const Chiave& a, const Chiave& b) const;

  std::vector<Chiave> chiavi_;
  QByteArray testi_;
};

int Chiavi::confronta(const Chiave& a, const Chiave& b) const {
  if (a.specie != b.specie) return a.specie < b.specie ? -1 : 1;
  if (a.numero != b.numero) return a.numero < b.numero ? -1 : 1;
  if (a.inizio != b.inizio) return a.inizio < b.inizio ? -1 : 1;
  const auto comune = static_cast<size_t>(std::min(a.lunga, b.lunga));
  if (const int n = std::memcmp(testi_.constData() + a.da, testi_.constData() + b.da, comune); n != 0)
    return n;
  if (a.lunga != b.lunga) return a.lunga < b.lunga ? -1 : 1;
  return lokera::confronta(a.testo, b.testo);
}

void Chiavi::aggiungi(QByteArrayView cella, bool numeri) {
  Chiave chiave;
  chiave.riga = static_cast<int>(chiavi_.size());
  if (const QByteArrayView testo = cella.trimmed(); !testo.isEmpty()) riconosci(chiave, testo, numeri);
  chiavi_.push_back(chiave);
}

std::vector<int> Chiavi::in_ordine(bool decrescente) {
  std::ranges::sort(chiavi_, [this, decrescente](const Chiave& a, const Chiave& b) {
    const int esito = decrescente ? confronta(b, a) : confronta(a, b);
    return esito != 0 ? esito < 0 : a.riga < b.riga;
  });
  std::vector<int> ordine(chiavi_.size());
  std::ranges::transform(chiavi_, ordine.begin(), &Chiave::riga);
  return ordine;
}

void Chiavi::riconosci(Chiave& chiave, QByteArrayView testo, bool numeri) {
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
  chiave.testo = testo;
  chiave.da = testi_.size();
  aggiungi_chiave(testi_, testo);
  chiave.lunga = testi_.size() - chiave.da;
  for (qsizetype i = 0; i < qsizetype{sizeof chiave.inizio}; ++i)
    chiave.inizio =
        chiave.inizio << 8U | (i < chiave.lunga ? static_cast<unsigned char>(testi_[chiave.da + i]) : 0U);
}

}  // namespace

void SSOleDBGrid::utente_ordina(int colonna) {
  if (!Enabled() || !OrdinabileDaTestata()) return;
  Update();
  if (colonna < 0 || colonna >= Cols()) return;
  const Colonna& c = Columns(colonna);
  const bool numeri = c.allineamento == Allineamento::destra;
  Chiavi chiavi(Rows());
  std::vector<QByteArray> calcolate;
  calcolate.reserve(c.campo.isEmpty() ? static_cast<size_t>(Rows()) : 0);
  for (int i = 0; i < Rows(); ++i) {
    if (c.campo.isEmpty()) calcolate.push_back(mostrata(aspetto(i), i, colonna).toUtf8());
    chiavi.aggiungi(c.campo.isEmpty() ? calcolate.back() : righe_.cella(i, colonna), numeri);
  }
  const bool decrescente = ordine_.colonna == colonna && !ordine_.decrescente;
  disponi(chiavi.in_ordine(decrescente));
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
