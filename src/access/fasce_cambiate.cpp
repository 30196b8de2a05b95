#include "access/fasce_cambiate.h"

#include <algorithm>
#include <iterator>

#include "access/giorno.h"
#include "access/tessere_di_fascia.h"
#include "store/recordset.h"

namespace lokera {

using namespace Qt::StringLiterals;

namespace {

QTime al_minuto(const QVariant& ora) {
  const QTime t = ora.toDateTime().time();
  return t.isValid() ? QTime(t.hour(), t.minute()) : QTime();
}

}  // namespace

FasceCambiate::FasceCambiate(Database& db, Traduttore& traduttore, QDate data)
    : db_(db), traduttore_(traduttore), data_(data) {}

Errore FasceCambiate::leggi_prima() {
  auto lette = leggi();
  prima_ = lette.prendi();
  return lette.errore();
}

Esito<FasceCambiate::Fasce> FasceCambiate::leggi() {
  const auto giorno = tipo_della_data(db_, traduttore_, data_);
  if (giorno.fallito()) return giorno.errore();
  Fasce fasce;
  Recordset rs;
  Errore e = rs.Open(u"select * from fascie_orarie where giorno = ?"_s, db_.connessione_db, {*giorno});
  while (!e.fallito() && !rs.eof()) {
    fasce[{rs.numero(u"gruppo_oper"), rs.numero(u"gruppo_chiavi")}].emplace(
        al_minuto(rs.valore(u"dalle_ore")), al_minuto(rs.valore(u"alle_ore")));
    e = rs.MoveNext();
  }
  if (e.fallito()) return e;
  return fasce;
}

Errore FasceCambiate::accoda() {
  const auto dopo = leggi();
  if (dopo.fallito()) return dopo.errore();
  Fasce cambiate;
  std::ranges::set_symmetric_difference(prima_, *dopo, std::inserter(cambiate, cambiate.end()));
  GruppiDiFascia gruppi;
  for (const auto& [coppia, orari] : cambiate) gruppi[coppia.first].insert(coppia.second);
  TessereDiFascia tessere(db_.connessione_db);
  if (Errore e = tessere.cerca(gruppi); e.fallito()) return e;
  return CodaTessere(db_.connessione_db).accoda_scritture_se_mancano(tessere.coppie());
}

}  // namespace lokera
