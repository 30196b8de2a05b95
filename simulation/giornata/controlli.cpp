#include "simulation/giornata/controlli.h"

#include "cards/maschera.h"
#include "store/recordset.h"

namespace lokera::simulazione {

using namespace Qt::StringLiterals;

namespace {

QString momento(const QVariant& data) {
  return data.toDateTime().toString(u"yyyy-MM-dd HH:mm:ss"_s);
}

/// Cards by their position at one cabinet, as the database has them.
std::map<int, QString> posizioni(Connection& c, int id, Riscontro& r) {
  std::map<int, QString> tutte;
  Recordset rs;
  Errore e = rs.Open(u"select id_tessera, posizione from posiz_tessere_oper where ID_lokera = ?"_s, c, {id});
  for (; !e.fallito() && !rs.eof(); e = rs.MoveNext())
    tutte[static_cast<int>(rs.numero(u"posizione"))] = rs.testo(u"id_tessera");
  if (e.fallito()) r.differenze << e.descrizione;
  return tutte;
}

bool in_registro(Connection& c, const QString& tessera) {
  Recordset rs;
  return !rs.Open(u"select codice from tessere_operatori where codice = ?"_s, c, {tessera}).fallito() &&
         !rs.eof();
}

QByteArray record_atteso(Connection& c, const QString& tessera, const QString& giorno, QTime ora,
                         Riscontro& r) {
  const auto maschera = calcola_maschera(c, tessera, giorno, ora);
  if (maschera.fallito()) r.differenze << maschera.errore().descrizione;
  return tessera.toLatin1() + maschera_esadecimale(*maschera);
}

void riscontra_cabinet(Connection& c, const Cabinet& cabinet, int id, const QString& giorno, QTime adesso,
                       Riscontro& r) {
  const std::map<int, QString> date = posizioni(c, id, r);
  for (const auto& [posizione, record] : cabinet.stato().operatori.record()) {
    if (!date.contains(posizione))
      r.differenze << u"cabinet %1, position %2 is free, and holds %3"_s.arg(id).arg(posizione).arg(
          QString::fromLatin1(record));
  }
  for (const auto& [posizione, tessera] : date) {
    if (!in_registro(c, tessera)) {
      r.differenze << u"cabinet %1 holds card %2, which is not in the registry"_s.arg(id).arg(tessera);
      continue;
    }
    const QByteArray stored = cabinet.stato().operatori.leggi(posizione);
    const QByteArray atteso = record_atteso(c, tessera, giorno, adesso, r);
    if (stored != atteso)
      r.differenze << u"cabinet %1, position %2, card %3: record %4, the database asks for %5"_s.arg(id)
                          .arg(posizione)
                          .arg(tessera, QString::fromLatin1(stored), QString::fromLatin1(atteso));
  }
}

}  // namespace

void riscontra_chiavi(Connection& c, Riscontro& r) {
  Recordset rs;
  Errore e = rs.Open(
      u"select k.codice, k.operatore, k.uscita, m.operatore as ultimo, m.operazione, m.data from"
      " tessere_chiavi as k left join movimenti as m on m.id = (select max(id) from movimenti where"
      " chiave = k.codice) order by k.codice"_s,
      c);
  for (; !e.fallito() && !rs.eof(); e = rs.MoveNext()) {
    const bool fuori = rs.testo(u"operazione") == u"P"_s;
    const QString operatore = fuori ? rs.testo(u"ultimo") : u" "_s;
    const QString uscita = fuori ? momento(rs.valore(u"data")) : QString();
    if (rs.testo(u"operatore") == operatore && momento(rs.valore(u"uscita")) == uscita) continue;
    r.differenze << u"key %1: out with '%2' since '%3', its last movement says '%4', '%5'"_s.arg(
        rs.testo(u"codice"), rs.testo(u"operatore"), momento(rs.valore(u"uscita")), operatore, uscita);
  }
  if (e.fallito()) r.differenze << e.descrizione;
}

bool coda_vuota(Connection& c) {
  Recordset rs;
  return !rs.Open(
                u"select ID_lokera from aggiorn_tessere_oper union all select ID_lokera from"
                " cancellazioni_da_confermare"_s,
                c)
              .fallito() &&
         rs.eof();
}

void riscontra_coda(Connection& c, Riscontro& r) {
  for (const QString& tabella :
       {u"aggiorn_tessere_oper"_s, u"cancellazioni_da_confermare"_s, u"tessere_da_conservare"_s}) {
    Recordset rs;
    Errore e = rs.Open(u"select id_tessera, id_lokera from "_s + tabella, c);
    for (; !e.fallito() && !rs.eof(); e = rs.MoveNext())
      r.differenze << u"still in %1: card %2, cabinet %3"_s.arg(tabella, rs.testo(u"id_tessera"),
                                                                rs.testo(u"id_lokera"));
    if (e.fallito()) r.differenze << e.descrizione;
  }
}

void riscontra_registro(Connection& c, const QStringList& vive, const QStringList& eliminate, Riscontro& r) {
  for (const QString& tessera : vive) {
    if (!in_registro(c, tessera)) r.differenze << u"card %1 is gone, and nobody deleted it"_s.arg(tessera);
  }
  for (const QString& tessera : eliminate) {
    Recordset rs;
    const Errore e = rs.Open(
        u"select codice from tessere_operatori where codice = ? union all select tessera from gruppi_tessera"
        " where tessera = ? union all select ID_tessera from posiz_tessere_oper where ID_tessera = ?"_s,
        c, {tessera, tessera, tessera});
    if (e.fallito() || !rs.eof()) r.differenze << u"card %1 was deleted, and is still there"_s.arg(tessera);
  }
}

void riscontra_tessere(Connection& c, const SitoGiornata& sito, const QString& giorno, QTime adesso,
                       Riscontro& r) {
  int id = 0;
  for (const SitoGiornata::Posto& p : sito.posti()) riscontra_cabinet(c, *p.cabinet, ++id, giorno, adesso, r);
}

void riscontra_fasce(Connection& c, const Cabinet& cabinet, int id, const QString& giorno, QTime adesso,
                     int minuti, Riscontro& r) {
  for (const auto& [posizione, tessera] : posizioni(c, id, r)) {
    const QByteArray stored = cabinet.stato().operatori.leggi(posizione);
    bool trovata = false;
    for (int indietro = 0; indietro <= minuti && !trovata; ++indietro)
      trovata = stored == record_atteso(c, tessera, giorno, adesso.addSecs(-60 * indietro), r);
    if (!trovata)
      r.differenze << u"cabinet %1, card %2: %3 is not what the bands ask for at %4, nor %5 minutes before"_s
                          .arg(id)
                          .arg(tessera, QString::fromLatin1(stored), adesso.toString(u"HH:mm:ss"_s))
                          .arg(minuti);
  }
}

}  // namespace lokera::simulazione
