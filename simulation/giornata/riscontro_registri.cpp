#include "simulation/giornata/riscontro_registri.h"

#include <algorithm>

#include "store/recordset.h"

namespace lokera::simulazione {

using namespace Qt::StringLiterals;

namespace {

using TesseraInLokera = std::pair<QString, qlonglong>;

std::set<TesseraInLokera> coppie(Connection& c, const QString& sql, Riscontro& r) {
  std::set<TesseraInLokera> tutte;
  Recordset rs;
  Errore e = rs.Open(sql, c);
  for (; !e.fallito() && !rs.eof(); e = rs.MoveNext())
    tutte.insert({rs.testo(u"tessera"), rs.numero(u"lokera")});
  if (e.fallito()) r.differenze << e.descrizione;
  return tutte;
}

// What each cabinet should hold of the registry by the groups.
std::set<TesseraInLokera> raggiunte(Connection& c, Riscontro& r) {
  return coppie(c,
                u"select distinct t.codice as tessera, k.lokera as lokera from (tessere_operatori as t inner"
                " join gruppi_tessera as g on t.codice = g.tessera) inner join tessere_chiavi as k on"
                " g.codice = k.gruppo"_s,
                r);
}

std::set<TesseraInLokera> con_posizione(Connection& c, Riscontro& r) {
  return coppie(c, u"select ID_tessera as tessera, ID_lokera as lokera from posiz_tessere_oper"_s, r);
}

bool qualcosa_da_ripetere(const RegistriAttesi& attesi, qlonglong lokera) {
  return std::ranges::any_of(attesi.da_ripetere, [&](const auto& una) { return una.first == lokera; });
}

const Archivio& archivio_chiavi(const SitoGiornata& sito, qlonglong lokera) {
  return sito.posti()[static_cast<size_t>(lokera - 1)].cabinet->stato().chiavi;
}

bool registrata(const SitoGiornata& sito, const QString& codice, const ChiaveAttesa& chiave) {
  const Archivio& archivio = archivio_chiavi(sito, chiave.lokera);
  return archivio.leggi(static_cast<int>(chiave.posizione)) == codice.toLatin1();
}

void riscontra_record_chiavi(const SitoGiornata& sito, const RegistriAttesi& attesi,
                             EccezioniRegistri& eccezioni, Riscontro& r) {
  std::set<std::pair<qlonglong, qlonglong>> prese;
  for (const auto& [codice, chiave] : attesi.chiavi) {
    prese.insert({chiave.lokera, chiave.posizione});
    if (!registrata(sito, codice, chiave))
      r.differenze << u"cabinet %1, position %2: no record of key %3"_s.arg(chiave.lokera)
                          .arg(chiave.posizione)
                          .arg(codice);
  }
  for (qlonglong id = 1; id <= static_cast<qlonglong>(sito.posti().size()); ++id) {
    for (const auto& [posizione, record] : archivio_chiavi(sito, id).record()) {
      if (prese.contains({id, posizione})) continue;
      if (attesi.lasciate.contains({id, posizione}))
        ++eccezioni.vecchie_posizioni;
      else
        r.differenze << u"cabinet %1, position %2: no key, and a record of %3"_s.arg(id).arg(posizione).arg(
            QString::fromLatin1(record));
    }
  }
}

}  // namespace

void conta_in_attesa(Connection& c, const SitoGiornata& sito, const RegistriAttesi& attesi,
                     EccezioniRegistri& eccezioni, Riscontro& r) {
  const auto presenti = con_posizione(c, r);
  for (const auto& [tessera, lokera] : raggiunte(c, r)) {
    if (presenti.contains({tessera, lokera})) continue;
    ++eccezioni.trattenute;
    if (!qualcosa_da_ripetere(attesi, lokera))
      r.differenze << u"cabinet %1 has no record of card %2, and nothing failed there"_s.arg(lokera).arg(
          tessera);
  }
  for (const auto& [codice, chiave] : attesi.chiavi) {
    if (registrata(sito, codice, chiave)) continue;
    ++eccezioni.senza_risposta;
    if (!qualcosa_da_ripetere(attesi, chiave.lokera))
      r.differenze
          << u"cabinet %1 has no record of key %2, and nothing failed there"_s.arg(chiave.lokera).arg(codice);
  }
}

void riscontra_registri(Connection& c, const SitoGiornata& sito, const RegistriAttesi& attesi,
                        EccezioniRegistri& eccezioni, Riscontro& r) {
  r.differenze << differenze_registri(c, attesi);
  riscontra_record_chiavi(sito, attesi, eccezioni, r);
  const auto presenti = con_posizione(c, r);
  const auto volute = raggiunte(c, r);
  for (const auto& [tessera, lokera] : volute)
    if (!presenti.contains({tessera, lokera}))
      r.differenze << u"cabinet %1 holds keys for card %2, and has no record of it"_s.arg(lokera).arg(
          tessera);
  for (const auto& [tessera, lokera] : presenti)
    if (!volute.contains({tessera, lokera}))
      r.differenze << u"cabinet %1 holds no key for card %2, and has its record"_s.arg(lokera).arg(tessera);
}

}  // namespace lokera::simulazione
