#include "ledger/tessere_scelte.h"

#include "store/recordset.h"

namespace lokera {

using namespace Qt::StringLiterals;

namespace {

// From one cabinet to the next by the index: a site has thousands of keys and a few cabinets.
QString lokere_con_chiavi() {
  return u"with recursive una (lokera) as (select min(lokera) from tessere_chiavi union all"
         " select (select min(k.lokera) from tessere_chiavi as k where k.lokera > una.lokera)"
         " from una where una.lokera is not null) select lokera from una where lokera is not null"_s;
}

}  // namespace

QString tessera_raggiunge(const QString& tessera, const QString& lokera) {
  return u"exists (select 1 from (gruppi_tessera as g inner join tessere_chiavi as k on g.codice = k.gruppo)"
         " where g.tessera = %1 and k.lokera = %2)"_s.arg(tessera, lokera);
}

TessereScelte TessereScelte::ovunque(std::span<const QString> tessere) {
  Q_ASSERT(!tessere.empty());
  QString codici = u"?"_s;
  for (size_t i = 1; i < tessere.size(); ++i) codici += u", ?"_s;
  QVariantList valori;
  for (const QString& tessera : tessere) valori << tessera;
  return {{u"select codice as tessera from tessere_operatori where codice in ("_s + codici + u')', valori},
          std::nullopt};
}

TessereScelte TessereScelte::del_gruppo(qlonglong gruppo, qlonglong lokera) {
  return {{u"select tessera from gruppi_tessera where codice = ? and exists (select 1 from tessere_operatori"
           " where tessere_operatori.codice = gruppi_tessera.tessera)"_s,
           {gruppo}},
          lokera};
}

TessereScelte TessereScelte::coppia(const QString& tessera, qlonglong lokera) {
  return {{u"select ? as tessera"_s, {tessera}}, lokera};
}

Sottoquery TessereScelte::coppie() const {
  if (lokera_)
    return {u"select tessera, ? as lokera from (%1)"_s.arg(tessere_.sql),
            QVariantList{*lokera_} + tessere_.valori};
  if (tessere_.valori.size() == 1)  // the keys of one card's groups are few
    return {
        u"select distinct t.tessera, k.lokera from ((%1) as t inner join gruppi_tessera as g on g.tessera ="
        " t.tessera) inner join tessere_chiavi as k on k.gruppo = g.codice where k.lokera is not null"_s.arg(
            tessere_.sql),
        tessere_.valori};
  return {u"select t.tessera, l.lokera from (%1) as t, (%2) as l where "_s.arg(tessere_.sql,
                                                                               lokere_con_chiavi()) +
              tessera_raggiunge(u"t.tessera"_s, u"l.lokera"_s),
          tessere_.valori};
}

Esito<std::vector<qlonglong>> lokere_della_tessera(Connection& connessione, const QString& tessera) {
  const Sottoquery coppie = TessereScelte::ovunque(tessera).coppie();
  std::vector<qlonglong> lokere;
  Recordset rs;
  Errore e =
      rs.Open(u"select lokera from (%1) order by lokera"_s.arg(coppie.sql), connessione, coppie.valori);
  while (!e.fallito() && !rs.eof()) {
    lokere.push_back(rs.valore(0).toLongLong());
    e = rs.MoveNext();
  }
  if (e.fallito()) return e;
  return lokere;
}

}  // namespace lokera
