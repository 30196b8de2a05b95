#include "simulation/giornata/registri_attesi.h"

#include "store/recordset.h"

namespace lokera::simulazione {

using namespace Qt::StringLiterals;

namespace {

Errore leggi_chiavi(Connection& c, RegistriAttesi& r) {
  Recordset rs;
  Errore e = rs.Open(u"select * from tessere_chiavi"_s, c);
  for (; !e.fallito() && !rs.eof(); e = rs.MoveNext())
    r.chiavi[rs.testo(u"codice")] = {rs.numero(u"lokera"), rs.numero(u"posizione"),
                                     rs.testo(u"descrizione").trimmed(), rs.numero(u"gruppo")};
  return e;
}

Errore leggi_tessere(Connection& c, RegistriAttesi& r) {
  Recordset rs;
  Errore e = rs.Open(u"select * from tessere_operatori"_s, c);
  for (; !e.fallito() && !rs.eof(); e = rs.MoveNext())
    r.tessere[rs.testo(u"codice")] = {rs.testo(u"intestazione").trimmed(),
                                      rs.valore(u"valido_dal").toDateTime().date(),
                                      rs.valore(u"valido_al").toDateTime().date(),
                                      rs.numero(u"gruppo"),
                                      rs.numero(u"NrMaxPrelievi"),
                                      {}};
  return e;
}

template <class Attese>
void confronta(const QString& nome, const Attese& attese, const Attese& scritte, QStringList& differenze) {
  for (const auto& [codice, riga] : attese) {
    const auto sua = scritte.find(codice);
    if (sua == scritte.end())
      differenze << u"%1 %2 is not in its registry"_s.arg(nome, codice);
    else if (!(sua->second == riga))
      differenze << u"%1 %2 is not as it was registered"_s.arg(nome, codice);
  }
  for (const auto& [codice, riga] : scritte)
    if (!attese.contains(codice))
      differenze << u"%1 %2 is in its registry, and should not"_s.arg(nome, codice);
}

}  // namespace

Errore leggi_registri(Connection& c, RegistriAttesi& r) {
  Errore e = leggi_chiavi(c, r);
  if (!e.fallito()) e = leggi_tessere(c, r);
  if (e.fallito()) return e;
  Recordset rs;
  e = rs.Open(u"select tessera, codice from gruppi_tessera"_s, c);
  for (; !e.fallito() && !rs.eof(); e = rs.MoveNext())
    r.tessere[rs.testo(u"tessera")].gruppi.insert(rs.numero(u"codice"));
  return e;
}

QStringList differenze_registri(Connection& c, const RegistriAttesi& r) {
  QStringList differenze;
  RegistriAttesi scritti;
  if (const Errore e = leggi_registri(c, scritti); e.fallito()) differenze << e.descrizione;
  confronta(u"key"_s, r.chiavi, scritti.chiavi, differenze);
  confronta(u"card"_s, r.tessere, scritti.tessere, differenze);
  return differenze;
}

}  // namespace lokera::simulazione
