#include "cards/posizioni_tessere.h"

#include "store/recordset.h"

namespace lokera {

using namespace Qt::StringLiterals;

namespace {

Errore leggi_posizioni(Recordset& rs, Errore e, QList<qint32>& posizioni) {
  while (!e.fallito() && !rs.eof()) {
    posizioni << static_cast<qint32>(rs.numero(u"posizione"));
    e = rs.MoveNext();
  }
  return e;
}

const QString& una_tessera() {
  static const QString sql = u"select * from posiz_tessere_oper where ID_tessera = ? and ID_lokera = ?"_s;
  return sql;
}

}  // namespace

Errore PosizioniTessere::assegna(const QString& tessera, qlonglong lokera, qint32& posizione) {
  Recordset rs;
  if (Errore e = rs.Open(una_tessera(), c_, {tessera, lokera}, Cursore::aggiornabile); e.fallito()) return e;
  if (!rs.eof()) {
    posizione = static_cast<qint32>(rs.numero(u"posizione"));
    return {};
  }
  if (Errore e = prima_libera(lokera, posizione); e.fallito()) return e;
  if (Errore e = rs.AddNew(); e.fallito()) return e;
  if (Errore e = rs.imposta(u"id_tessera", tessera); e.fallito()) return e;
  if (Errore e = rs.imposta(u"id_lokera", lokera); e.fallito()) return e;
  if (Errore e = rs.imposta(u"posizione", posizione); e.fallito()) return e;
  return rs.Update();
}

// Gaps left by deleted cards are filled first, lowest first.
Errore PosizioniTessere::prima_libera(qlonglong lokera, qint32& posizione) {
  Recordset rs;
  QList<qint32> prese;
  Errore e = rs.Open(u"SELECT posizione FROM posiz_tessere_oper where ID_lokera = ? ORDER BY posizione"_s, c_,
                     {lokera});
  e = leggi_posizioni(rs, e, prese);
  for (posizione = 0; posizione < prese.size() && prese[posizione] == posizione;) ++posizione;
  return e;
}

Errore PosizioniTessere::libera(const QString& tessera, qlonglong lokera, qint32& posizione, bool& trovata) {
  return in_transazione(c_, [&]() -> Errore {
    Recordset rs;
    if (Errore e = rs.Open(una_tessera(), c_, {tessera, lokera}, Cursore::aggiornabile); e.fallito())
      return e;
    trovata = !rs.eof();
    if (!trovata) return {};
    posizione = static_cast<qint32>(rs.numero(u"posizione"));
    if (Errore e = rs.Delete(); e.fallito()) return e;
    return ricorda(tessera, lokera, posizione);
  });
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

Errore PosizioniTessere::da_confermare(qlonglong lokera, QList<qint32>& posizioni) {
  Recordset rs;
  Errore e = rs.Open(
      u"select d.posizione from cancellazioni_da_confermare as d where d.ID_lokera = ? and not exists (select"
      " 1 from posiz_tessere_oper as p where p.ID_lokera = d.ID_lokera and p.posizione = d.posizione and not"
      " exists (select 1 from aggiorn_tessere_oper as q where q.ID_tessera = p.ID_tessera and q.ID_lokera ="
      " p.ID_lokera and q.operazione = 'I')) order by d.posizione"_s,
      c_, {lokera});
  return leggi_posizioni(rs, e, posizioni);
}

}  // namespace lokera
