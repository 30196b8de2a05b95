#include "ledger/registro_in_blocco.h"

#include <utility>

namespace lokera {

namespace {
/// Cards, and keys, that are kept in mind; a file of nonsense may have a million of them.
constexpr qsizetype al_massimo_a_mente = 4096;
}  // namespace

Errore RegistroInBlocco::registra(Movimento movimento) {
  const auto titolare = intestazione(movimento.operatore);
  if (titolare.fallito()) return titolare.errore();
  movimento.intestazione = *titolare;
  if (Errore e = aggiungi_movimento(c_, id_, movimento); e.fallito()) return e;
  ++id_;
  chiavi_[movimento.chiave.toLower()] = {movimento.chiave, stato_dopo(movimento)};
  return chiavi_.size() < al_massimo_a_mente ? Errore{} : scrivi_chiavi();
}

Esito<QString> RegistroInBlocco::intestazione(const QString& tessera) {
  if (const auto nota = intestazioni_.constFind(tessera); nota != intestazioni_.constEnd()) return *nota;
  auto letta = registro_.intestazione(tessera);
  if (letta.fallito()) return letta;
  if (intestazioni_.size() >= al_massimo_a_mente) intestazioni_.clear();
  intestazioni_.insert(tessera, *letta);
  return letta;
}

Errore RegistroInBlocco::scrivi_chiavi() {
  for (const ChiaveMossa& mossa : std::exchange(chiavi_, {}))
    if (Errore e = scrivi_stato(c_, mossa.codice, mossa.stato); e.fallito()) return e;
  return {};
}

Errore registra_in_blocco(Connection& connessione, const std::function<Errore(RegistroInBlocco&)>& lavoro) {
  return in_transazione(connessione, [&]() -> Errore {
    const auto primo = nuovo_id_movimento(connessione);
    if (primo.fallito()) return primo.errore();
    RegistroInBlocco blocco(connessione);
    blocco.id_ = *primo;
    if (Errore e = lavoro(blocco); e.fallito()) return e;
    return blocco.scrivi_chiavi();
  });
}

}  // namespace lokera
