#include "access/tessere_di_fascia.h"

#include <algorithm>

namespace lokera {

using namespace Qt::StringLiterals;

Errore TessereDiFascia::cerca(const GruppiDiFascia& gruppi, const std::function<bool()>& finito,
                              const std::function<void()>& respira) {
  for (const auto& [gruppo_oper, gruppi_chiavi] : gruppi) {
    LetturaATratti lettura(
        c_,
        u"select tessere_operatori.codice, gruppi_tessera.codice as gruppo from (tessere_operatori inner"
        " join gruppi_tessera on tessere_operatori.codice = gruppi_tessera.tessera) where"
        " tessere_operatori.gruppo = ?"_s,
        {gruppo_oper});
    do {
      if (Errore e = cerca_tratto(lettura, gruppi_chiavi, finito); e.fallito()) return e;
      if (respira && finito()) respira();
    } while (lettura.sospesa());
  }
  return {};
}

Errore TessereDiFascia::cerca_tratto(LetturaATratti& lettura, const std::set<qlonglong>& gruppi_chiavi,
                                     const std::function<bool()>& finito) {
  if (Errore e = lettura.apri(); e.fallito()) return e;
  Recordset& rs = lettura.righe();
  while (!rs.eof()) {
    const qlonglong gruppo = rs.valore(1).toLongLong();
    if (gruppi_chiavi.contains(gruppo)) {
      if (Errore e = aggiungi(rs.valore(0).toString(), gruppo); e.fallito()) return e;
    }
    lettura.annota();
    if (Errore e = rs.MoveNext(); e.fallito()) return e;
    if (finito && finito() && lettura.sospendi()) break;
  }
  return {};
}

Errore TessereDiFascia::aggiungi(const QString& tessera, qlonglong gruppo_chiavi) {
  auto dove = lokere_.find(gruppo_chiavi);
  if (dove == lokere_.end()) {
    auto lette = leggi_lokere(gruppo_chiavi);
    if (lette.fallito()) return lette.errore();
    dove = lokere_.emplace(gruppo_chiavi, lette.prendi()).first;
  }
  for (const qlonglong lokera : dove->second) coppie_.emplace_back(tessera, lokera);
  return {};
}

Esito<std::vector<qlonglong>> TessereDiFascia::leggi_lokere(qlonglong gruppo_chiavi) {
  std::vector<qlonglong> lokere;
  Recordset rs;
  Errore e = rs.Open(u"select distinct lokera from tessere_chiavi where gruppo = ? and lokera is not null"_s,
                     c_, {gruppo_chiavi});
  while (!e.fallito() && !rs.eof()) {
    lokere.push_back(rs.valore(0).toLongLong());
    e = rs.MoveNext();
  }
  if (e.fallito()) return e;
  return lokere;
}

const std::vector<TesseraInLokera>& TessereDiFascia::coppie() {
  std::ranges::sort(coppie_);
  coppie_.erase(std::unique(coppie_.begin(), coppie_.end()), coppie_.end());
  return coppie_;
}

}  // namespace lokera
