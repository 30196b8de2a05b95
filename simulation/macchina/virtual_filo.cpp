#include "simulation/macchina/virtual_filo.h"

#include "simulation/macchina/virtual_network.h"

namespace lokera::simulazione {

namespace {
constexpr Monotonic attesa_trattenuto = std::chrono::milliseconds(400);
Estremo altro(Estremo lato) {
  return lato == Estremo::console ? Estremo::cabinet : Estremo::console;
}
}  // namespace

void VirtualFilo::stacca(Estremo lato) {
  if (!std::exchange(capo_di(lato), nullptr)) return;
  if (attaccato(altro(lato))) posta_caduta(altro(lato));
}

void VirtualFilo::manda(Estremo da, const QByteArray& dati) {
  if (rotto_ || dati.isEmpty()) return;
  Sorte sorte = rete_.sorte(da, indirizzo_, dati);
  if (sorte.trattiene) return trattieni(sorte);
  if (da == Estremo::cabinet && !sorte.arrivi.isEmpty())
    sorte.arrivi[0].dati.prepend(std::exchange(trattenuto_, {}));
  for (const auto& arrivo : std::as_const(sorte.arrivi)) posta(altro(da), arrivo.ritardo, arrivo.dati);
  if (!sorte.cade) return;
  rotto_ = true;
  posta_caduta(altro(da));
  posta_caduta(da);
}

void VirtualFilo::trattieni(const Sorte& sorte) {
  trattenuto_ += sorte.arrivi[0].dati;
  rete_.ciclo().fra(attesa_trattenuto + sorte.arrivi[0].ritardo,
                    [filo = shared_from_this()] { filo->rilascia(); });
}

void VirtualFilo::rilascia() {
  if (!trattenuto_.isEmpty()) posta(Estremo::console, Monotonic(0), std::exchange(trattenuto_, {}));
}

Monotonic VirtualFilo::prossimo_arrivo(Estremo a, Monotonic ritardo) {
  Monotonic& ultimo = ultimo_arrivo_[static_cast<size_t>(a)];
  ultimo = std::max(ultimo, rete_.ciclo().adesso() + rete_.latenza() + ritardo);
  return ultimo;
}

void VirtualFilo::posta(Estremo a, Monotonic ritardo, const QByteArray& dati) {
  rete_.ciclo().a(prossimo_arrivo(a, ritardo),
                  [filo = shared_from_this(), a, dati] { filo->arriva(a, dati); });
}

void VirtualFilo::posta_caduta(Estremo a) {
  rete_.ciclo().a(prossimo_arrivo(a, Monotonic(0)), [filo = shared_from_this(), a] { filo->caduta(a); });
}

void VirtualFilo::connesso() {
  if (CapoFilo* capo = capo_di(Estremo::console)) capo->connesso();
}

void VirtualFilo::consegna(Estremo a, const QString& indirizzo, quint16 porta, const QByteArray& dati) {
  CapoFilo* capo = capo_di(a);
  if (!capo) return;
  rete_.annota(a == Estremo::console ? u'<' : u'>', indirizzo, porta, dati);
  capo->arriva(dati);
}

void VirtualFilo::caduta(Estremo a) {
  CapoFilo* capo = std::exchange(capo_di(a), nullptr);
  if (!capo) return;
  rete_.annota(u'x', indirizzo_, porta_, {});
  capo->caduta();
}

}  // namespace lokera::simulazione
