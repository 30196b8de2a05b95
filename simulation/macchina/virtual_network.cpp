#include "simulation/macchina/virtual_network.h"

#include <algorithm>

#include "simulation/macchina/virtual_canale.h"

namespace lokera::simulazione {

using namespace Qt::StringLiterals;

namespace {
// An address without an answer: the computer gives up on it after this long.
constexpr Monotonic rinuncia = std::chrono::seconds(21);
const Guasti nessun_guasto;
}  // namespace

bool VirtualNetwork::ascolta_tcp(const QString& indirizzo, quint16 porta, Accetta accetta, Proprietario di) {
  return tcp_.try_emplace({indirizzo, porta}, Ascolto{std::move(accetta), di}).second;
}

bool VirtualNetwork::ascolta_udp(const QString& indirizzo, quint16 porta, Datagramma arrivo,
                                 Proprietario di) {
  const auto [da, a] = udp_.equal_range({indirizzo, porta});
  if (!std::all_of(da, a, [](const auto& voce) { return voce.second.solo_a_tutti; })) return false;
  udp_.emplace(Porta{indirizzo, porta}, Presa{std::move(arrivo), di, false});
  return true;
}

bool VirtualNetwork::ascolta_tutti(const QString& indirizzo, quint16 porta, Datagramma arrivo,
                                   Proprietario di) {
  udp_.emplace(Porta{indirizzo, porta}, Presa{std::move(arrivo), di, true});
  return true;
}

void VirtualNetwork::smetti(const QString& indirizzo, Proprietario di) {
  const auto sua = [&](const auto& voce) { return voce.first.first == indirizzo && voce.second.di == di; };
  std::erase_if(tcp_, sua);
  std::erase_if(udp_, sua);
  const auto fili = fili_;
  for (const Filo& uno : fili) {
    const auto filo = uno.filo.lock();
    if (filo && uno.di == di && filo->indirizzo() == indirizzo) filo->stacca(Estremo::cabinet);
  }
}

const Guasti& VirtualNetwork::guasti_per(const QString& indirizzo) const {
  if (!accesi_) return nessun_guasto;
  const auto suoi = guasti_di_.constFind(indirizzo);
  return suoi == guasti_di_.constEnd() ? guasti_ : *suoi;
}

bool VirtualNetwork::ospita(const QString& indirizzo) const {
  const auto suo = [&](const auto& voce) { return voce.first.first == indirizzo; };
  return std::any_of(tcp_.begin(), tcp_.end(), suo) || std::any_of(udp_.begin(), udp_.end(), suo);
}

Monotonic VirtualNetwork::latenza() {
  return Monotonic(caso_.fra(latenza_min_.count() / 1000, latenza_max_.count() / 1000) * 1000);
}

Sorte VirtualNetwork::sorte(Estremo da, const QString& indirizzo, const QByteArray& dati) {
  const Guasti& guasti = guasti_per(indirizzo);
  return da == Estremo::console ? sorte_del_comando(guasti, caso_, dati)
                                : sorte_della_risposta(guasti, caso_, dati);
}

void VirtualNetwork::annota(QChar verso, const QString& indirizzo, quint16 porta,
                            const QByteArray& dati) const {
  if (!traccia) return;
  const auto micro = std::chrono::floor<std::chrono::microseconds>(ciclo_.adesso()).count();
  traccia(u"%1 %2 %3:%4 %5"_s.arg(micro).arg(verso).arg(indirizzo).arg(porta).arg(
      QString::fromLatin1(dati.toPercentEncoding())));
}

void VirtualNetwork::connetti(const std::shared_ptr<VirtualFilo>& filo) {
  ciclo_.fra(latenza(), [this, filo] { risposta_al_connect(filo); });
}

void VirtualNetwork::risposta_al_connect(const std::shared_ptr<VirtualFilo>& filo) {
  if (!filo->attaccato(Estremo::console)) return;  // closed before the answer
  const Guasti& guasti = guasti_per(filo->indirizzo());
  if (!ospita(filo->indirizzo()) || caso_.per_mille(guasti.muto)) {
    annota(u'?', filo->indirizzo(), filo->porta(), {});
    ciclo_.fra(rinuncia, [filo] { filo->caduta(Estremo::console); });
    return;
  }
  if (tcp_.contains({filo->indirizzo(), filo->porta()}) && !caso_.per_mille(guasti.rifiuta))
    return accetta(filo);
  annota(u'-', filo->indirizzo(), filo->porta(), {});
  filo->caduta(Estremo::console);
}

void VirtualNetwork::accetta(const std::shared_ptr<VirtualFilo>& filo) {
  annota(u'+', filo->indirizzo(), filo->porta(), {});
  filo->connesso();
  const Ascolto suo = tcp_.at({filo->indirizzo(), filo->porta()});  // a copy: it may stop listening inside
  std::erase_if(fili_, [](const Filo& uno) { return uno.filo.expired(); });
  fili_.push_back({filo, suo.di});
  suo.accetta(std::make_shared<VirtualCanale>(filo));
}

void VirtualNetwork::manda_datagramma(const std::shared_ptr<VirtualFilo>& mittente, const QString& indirizzo,
                                      quint16 porta, const QByteArray& dati) {
  const bool a_tutti = indirizzo == u"255.255.255.255"_s;
  for (const auto& [dove, presa] : udp_) {
    const bool suo = a_tutti || (dove.first == indirizzo && !presa.solo_a_tutti);
    if (dove.second == porta && suo) posta_datagramma(mittente, {dove, presa.di}, dati);
  }
}

void VirtualNetwork::posta_datagramma(const std::shared_ptr<VirtualFilo>& mittente, const Destino& a,
                                      const QByteArray& dati) {
  for (const auto& arrivo : sorte_del_datagramma(guasti_per(a.porta.first), caso_, dati).arrivi) {
    ciclo_.fra(latenza() + arrivo.ritardo,
               [this, mittente, a, dati = arrivo.dati] { arriva_datagramma(mittente, a, dati); });
  }
}

void VirtualNetwork::arriva_datagramma(const std::shared_ptr<VirtualFilo>& mittente, const Destino& a,
                                       const QByteArray& dati) {
  const auto [da, fino] = udp_.equal_range(a.porta);
  const auto voce = std::find_if(da, fino, [&](const auto& una) { return una.second.di == a.di; });
  if (voce == fino) return;
  annota(u'>', a.porta.first, a.porta.second, dati);
  const Datagramma arrivo = voce->second.arrivo;  // a copy: it may stop listening inside
  arrivo(dati, [this, debole = std::weak_ptr(mittente), porta = a.porta](QByteArrayView risposta) {
    rispondi(debole, porta, risposta.toByteArray());
  });
}

void VirtualNetwork::rispondi(const std::weak_ptr<VirtualFilo>& mittente, const Porta& da,
                              const QByteArray& dati) {
  for (const auto& arrivo : sorte_del_datagramma(guasti_per(da.first), caso_, dati).arrivi) {
    ciclo_.fra(latenza() + arrivo.ritardo, [this, mittente, da, dati = arrivo.dati] {
      if (const auto filo = mittente.lock()) filo->arriva_datagramma(da.first, da.second, dati);
    });
  }
}

}  // namespace lokera::simulazione
