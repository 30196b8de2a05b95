#include "cards/posizioni_tessere.h"

#include "store/recordset.h"

namespace lokera {

using namespace Qt::StringLiterals;

namespace {

Esito<QList<qint32>> leggi_posizioni(Connection& c, const QString& sql, qlonglong lokera) {
  QList<qint32> posizioni;
  Recordset rs;
  Errore e = rs.Open(sql, c, {lokera});
  while (!e.fallito() && !rs.eof()) {
    posizioni << static_cast<qint32>(rs.numero(u"posizione"));
    e = rs.MoveNext();
  }
  if (e.fallito()) return e;
  return posizioni;
}

const QString& una_tessera() {
  static const QString sql = u"select * from posiz_tessere_oper where ID_tessera = ? and ID_lokera = ?"_s;
  return sql;
}

}  // namespace

Esito<qint32> PosizioniTessere::assegna(const QString& tessera, qlonglong lokera) {
  Recordset rs;
  if (const Errore e = rs.Open(una_tessera(), c_, {tessera, lokera}, Cursore::aggiornabile); e.fallito())
    return e;
  if (!rs.eof()) return static_cast<qint32>(rs.numero(u"posizione"));
  auto posizione = prima_libera(lokera);
  if (posizione.fallito()) return posizione;
  if (const Errore e = rs.AddNew(); e.fallito()) return e;
  if (const Errore e = rs.imposta(u"id_tessera", tessera); e.fallito()) return e;
  if (const Errore e = rs.imposta(u"id_lokera", lokera); e.fallito()) return e;
  if (const Errore e = rs.imposta(u"posizione", *posizione); e.fallito()) return e;
  if (const Errore e = rs.Update(); e.fallito()) return e;
  return posizione;
}

// Gaps left by deleted cards are filled first, lowest first.
Esito<qint32> PosizioniTessere::prima_libera(qlonglong lokera) {
  const auto prese = leggi_posizioni(
      c_, u"SELECT posizione FROM posiz_tessere_oper where ID_lokera = ? ORDER BY posizione"_s, lokera);
  if (prese.fallito()) return prese.errore();
  qint32 posizione = 0;
  while (posizione < prese->size() && prese->at(posizione) == posizione) ++posizione;
  return posizione;
}

Esito<std::optional<qint32>> PosizioniTessere::libera(const QString& tessera, qlonglong lokera) {
  std::optional<qint32> posizione;
  const Errore errore = in_transazione(c_, [&]() -> Errore {
    Recordset rs;
    if (Errore e = rs.Open(una_tessera(), c_, {tessera, lokera}, Cursore::aggiornabile); e.fallito())
      return e;
    if (rs.eof()) return {};
    posizione = static_cast<qint32>(rs.numero(u"posizione"));
    if (Errore e = rs.Delete(); e.fallito()) return e;
    return ricorda(tessera, lokera, *posizione);
  });
  if (errore.fallito()) return errore;
  return posizione;
}

Errore PosizioniTessere::ricorda(const QString& tessera, qlonglong lokera, qint32 posizione) {
  if (Errore e = confermata(lokera, posizione); e.fallito()) return e;
  return c_.Execute(
      u"insert into cancellazioni_da_confermare (ID_lokera, posizione, ID_tessera) values (?, ?, ?)"_s,
      {lokera, posizione, tessera});
}

Errore PosizioniTessere::confermata(qlonglong lokera, qint32 posizione) {
  return c_.Execute(u"delete from cancellazioni_da_confermare where ID_lokera = ? and posizione = ?"_s,
                    {lokera, posizione});
}

Esito<QList<qint32>> PosizioniTessere::da_confermare(qlonglong lokera) {
  return leggi_posizioni(
      c_,
      u"select d.posizione from cancellazioni_da_confermare as d where d.ID_lokera = ? and not exists (select"
      " 1 from posiz_tessere_oper as p where p.ID_lokera = d.ID_lokera and p.posizione = d.posizione and not"
      " exists (select 1 from aggiorn_tessere_oper as q where q.ID_tessera = p.ID_tessera and q.ID_lokera ="
      " p.ID_lokera and q.operazione = 'I')) order by d.posizione"_s,
      lokera);
}

}  // namespace lokera
