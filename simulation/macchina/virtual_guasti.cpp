#include "simulation/macchina/virtual_guasti.h"

namespace lokera::simulazione {

namespace {

using std::chrono::milliseconds;

Monotonic ritardo(const Guasti& guasti, Caso& caso) {
  if (!caso.per_mille(guasti.ritarda)) return Monotonic(0);
  return milliseconds(caso.fra(1, std::chrono::floor<milliseconds>(guasti.ritardo_massimo).count()));
}

QByteArray altera(Caso& caso, QByteArray dati) {
  if (dati.isEmpty()) return dati;
  const auto dove = static_cast<qsizetype>(caso.sotto(static_cast<quint64>(dati.size())));
  dati[dove] = static_cast<char>(dati[dove] ^ static_cast<char>(caso.fra(1, 255)));
  return dati;
}

QList<Sorte::Arrivo> spezza(Caso& caso, Monotonic quando, const QByteArray& dati) {
  QList<Sorte::Arrivo> pezzi;
  for (qsizetype da = 0; da < dati.size();) {
    const qsizetype lungo = caso.fra(1, std::max<qsizetype>(1, dati.size() / 2));
    pezzi.append({quando, dati.mid(da, lungo)});
    quando += milliseconds(caso.fra(1, 60));
    da += lungo;
  }
  return pezzi;
}

Sorte troncato(Caso& caso, const QByteArray& dati) {
  const auto resta = static_cast<qsizetype>(caso.sotto(static_cast<quint64>(dati.size())));
  Sorte sorte;
  if (resta > 0) sorte.arrivi.append({Monotonic(0), dati.left(resta)});
  sorte.cade = true;
  return sorte;
}

void forse_ripete(const Guasti& guasti, Caso& caso, Sorte& sorte, const QByteArray& dati) {
  if (!caso.per_mille(guasti.ripete)) return;
  const Monotonic ultimo = sorte.arrivi.isEmpty() ? Monotonic(0) : sorte.arrivi.last().ritardo;
  sorte.arrivi.append({ultimo + milliseconds(caso.fra(1, 500)), dati});
}

}  // namespace

Sorte sorte_del_comando(const Guasti& guasti, Caso& caso, const QByteArray& dati) {
  if (caso.per_mille(guasti.cade)) return troncato(caso, dati);
  return {.arrivi = {{Monotonic(0), dati}}};
}

Sorte sorte_della_risposta(const Guasti& guasti, Caso& caso, const QByteArray& dati) {
  if (caso.per_mille(guasti.perde)) return {};
  if (caso.per_mille(guasti.cade)) return troncato(caso, dati);
  const QByteArray arriva = caso.per_mille(guasti.altera) ? altera(caso, dati) : dati;
  const Monotonic quando = ritardo(guasti, caso);
  if (caso.per_mille(guasti.unisce)) return {.arrivi = {{quando, arriva}}, .trattiene = true};
  Sorte sorte;
  if (caso.per_mille(guasti.spezza))
    sorte.arrivi = spezza(caso, quando, arriva);
  else
    sorte.arrivi.append({quando, arriva});
  forse_ripete(guasti, caso, sorte, arriva);
  return sorte;
}

Sorte sorte_del_datagramma(const Guasti& guasti, Caso& caso, const QByteArray& dati) {
  if (caso.per_mille(guasti.perde)) return {};
  const QByteArray arriva = caso.per_mille(guasti.altera) ? altera(caso, dati) : dati;
  Sorte sorte{.arrivi = {{ritardo(guasti, caso), arriva}}};
  forse_ripete(guasti, caso, sorte, arriva);
  return sorte;
}

}  // namespace lokera::simulazione
