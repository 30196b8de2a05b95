// What the two registries ask of the queue: passes over many cards, a card's registration, a code that
// changes.
#include <algorithm>

#include "ledger/coda_tessere.h"
#include "store/recordset.h"

namespace lokera {

using namespace Qt::StringLiterals;

namespace {

QString testo(MotivoConservare motivo) {
  switch (motivo) {
    case MotivoConservare::non_raggiunta:
      return u"non raggiunta"_s;
    case MotivoConservare::attende_chiave:
      return u"attende chiave"_s;
    case MotivoConservare::chiave_tolta:
      return u"chiave tolta"_s;
  }
  return {};
}

Errore gia_eliminata() {
  return {1, u"La tessera è stata eliminata."_s};
}

}  // namespace

// The marks go last: a deletion must not lose its own while it is still one.
Errore CodaTessere::accoda_scritture(const TessereScelte& tessere) {
  return tutto_o_niente(c_, [&]() -> Errore {
    const QString resta = u" and not "_s + in_uscita(u"scelte.tessera"_s);
    if (Errore e = metti(tessere, OperazioneCoda::scrittura, resta); e.fallito()) return e;
    const Sottoquery& quali = tessere.tessere();
    return c_.Execute(
        u"delete from tessere_da_conservare where ID_tessera in (%1) and exists (select 1 from"
        " aggiorn_tessere_oper as a where a.ID_tessera = tessere_da_conservare.ID_tessera and a.ID_lokera ="
        " tessere_da_conservare.ID_lokera and a.operazione = 'I')"_s.arg(quali.sql),
        quali.valori);
  });
}

// The marks come first: a deletion without one would say that the card is on its way out.
Errore CodaTessere::accoda_cancellazioni(const TessereScelte& tessere, MotivoConservare motivo) {
  return tutto_o_niente(c_, [&] {
    Errore errore = segna(tessere, motivo);
    return errore.fallito() ? errore : metti(tessere, OperazioneCoda::cancellazione);
  });
}

Errore CodaTessere::accoda_altrove(qlonglong gruppo, qlonglong lokera) {
  return c_.Execute(
      u"insert into aggiorn_tessere_oper (ID_tessera, ID_lokera, operazione) select p.ID_tessera,"
      " p.ID_lokera, 'I' from posiz_tessere_oper as p where p.ID_lokera <> ? and exists (select 1 from"
      " gruppi_tessera as g where g.tessera = p.ID_tessera and g.codice = ?) and not exists (select 1 from"
      " aggiorn_tessere_oper as a where a.ID_tessera = p.ID_tessera and a.ID_lokera = p.ID_lokera) and not "_s +
          in_uscita(u"p.ID_tessera"_s),
      {lokera, gruppo});
}

Errore CodaTessere::metti(const TessereScelte& tessere, OperazioneCoda operazione,
                          const QString& condizione) {
  const Sottoquery coppie = tessere.coppie();
  const QString lettera(QChar(static_cast<char16_t>(operazione)));
  return c_.Execute(
      u"insert or replace into aggiorn_tessere_oper (ID_tessera, ID_lokera, operazione) with scelte (tessera,"
      " lokera) as (%1) select tessera, lokera, '%2' from scelte where not exists (select 1 from"
      " aggiorn_tessere_oper as a where a.ID_tessera = scelte.tessera and a.ID_lokera = scelte.lokera and"
      " a.operazione = '%2')%3"_s.arg(coppie.sql, lettera, condizione),
      coppie.valori);
}

Errore CodaTessere::segna(const TessereScelte& tessere, MotivoConservare motivo) {
  const Sottoquery coppie = tessere.coppie();
  return c_.Execute(
      u"insert or replace into tessere_da_conservare (ID_tessera, ID_lokera, motivo) with scelte (tessera,"
      " lokera) as (%1) select tessera, lokera, ? from scelte where not %2"_s.arg(
          coppie.sql, in_uscita(u"scelte.tessera"_s)),
      coppie.valori + QVariantList{testo(motivo)});
}

Errore CodaTessere::registra_tessera(const QString& tessera, const std::function<Errore()>& scrivi) {
  return tutto_o_niente(c_, [&]() -> Errore {
    const auto uscente = esce(tessera);
    if (uscente.fallito()) return uscente.errore();
    if (*uscente) return gia_eliminata();
    const auto prima = lokere_della_tessera(c_, tessera);
    if (prima.fallito()) return prima.errore();
    if (Errore e = scrivi(); e.fallito()) return e;
    if (Errore e = accoda_scritture(TessereScelte::ovunque(tessera)); e.fallito()) return e;
    return lascia(tessera, *prima);
  });
}

// Of the cabinets that the card reached before, those that it reaches no more.
Errore CodaTessere::lascia(const QString& tessera, const std::vector<qlonglong>& prima) {
  const auto adesso = lokere_della_tessera(c_, tessera);
  Errore e = adesso.errore();
  for (const qlonglong lokera : prima)
    if (!e.fallito() && !std::ranges::binary_search(*adesso, lokera))
      e = accoda_cancellazioni(TessereScelte::coppia(tessera, lokera), MotivoConservare::non_raggiunta);
  return e;
}

Errore CodaTessere::registra_nuova_tessera(const QString& tessera, const std::function<Errore()>& scrivi) {
  return tutto_o_niente(c_, [&] {
    Errore errore = riprendi(tessera);
    return errore.fallito() ? errore : registra_tessera(tessera, scrivi);
  });
}

Errore CodaTessere::riprendi(const QString& tessera) {
  return c_.Execute(
      u"insert into tessere_da_conservare (ID_tessera, ID_lokera, motivo) select q.ID_tessera, q.ID_lokera, ?"
      " from aggiorn_tessere_oper as q where q.ID_tessera = ? and q.operazione = 'D' and not exists (select 1"
      " from tessere_da_conservare as m where m.ID_tessera = q.ID_tessera and m.ID_lokera = q.ID_lokera)"_s,
      {testo(MotivoConservare::non_raggiunta), tessera});
}

Errore CodaTessere::cambia_codice(const QString& vecchio, const QString& nuovo) {
  if (vecchio.compare(nuovo, Qt::CaseInsensitive) == 0) return {};
  return tutto_o_niente(c_, [&]() -> Errore {
    if (Errore e = copia_riga(vecchio, nuovo); e.fallito()) return e;
    if (Errore e = sposta_gruppi(vecchio, nuovo); e.fallito()) return e;
    if (Errore e = elimina_tessera(vecchio); e.fallito()) return e;
    return accoda_scritture(TessereScelte::ovunque(nuovo));
  });
}

// Under a code whose deletion still waits somewhere the new card takes the place of the one that goes.
Errore CodaTessere::copia_riga(const QString& vecchio, const QString& nuovo) {
  if (Errore e = c_.Execute(u"delete from tessere_operatori where codice = ? and "_s + in_uscita(u"codice"_s),
                            {nuovo});
      e.fallito())
    return e;
  if (Errore e = riprendi(nuovo); e.fallito()) return e;
  const auto copiate = c_.esegui_contando(
      u"insert into tessere_operatori (codice, intestazione, valido_dal, valido_al, posizione, gruppo,"
      " NrMaxPrelievi) select ?, intestazione, valido_dal, valido_al, posizione, gruppo, NrMaxPrelievi from"
      " tessere_operatori where codice = ? and not "_s +
          in_uscita(u"codice"_s),
      {nuovo, vecchio});
  if (copiate.fallito() || *copiate > 0) return copiate.errore();
  return gia_eliminata();
}

Errore CodaTessere::sposta_gruppi(const QString& vecchio, const QString& nuovo) {
  if (Errore e = c_.Execute(u"delete from gruppi_tessera where tessera = ?"_s, {nuovo}); e.fallito())
    return e;
  return c_.Execute(u"update gruppi_tessera set tessera = ? where tessera = ?"_s, {nuovo, vecchio});
}

Esito<qlonglong> CodaTessere::trattenute(qlonglong lokera) {
  Recordset rs;
  if (const Errore e =
          rs.Open(u"select count(*) from (tessere_da_conservare as m inner join tessere_operatori as t on"
                  " m.ID_tessera = t.codice) where m.ID_lokera = ? and m.motivo = ?"_s,
                  c_, {lokera, testo(MotivoConservare::attende_chiave)});
      e.fallito())
    return e;
  return rs.valore(0).toLongLong();
}

Esito<bool> CodaTessere::da_riscrivere(const QString& tessera, qlonglong lokera) {
  return esiste(
      u"select 1 from tessere_da_conservare as m where m.ID_tessera = ? and m.ID_lokera = ? and m.motivo = ? and "_s +
          tessera_raggiunge(u"m.ID_tessera"_s, u"m.ID_lokera"_s),
      {tessera, lokera, testo(MotivoConservare::chiave_tolta)});
}

Esito<bool> CodaTessere::esce(const QString& tessera) {
  return esiste(u"select 1 where "_s + in_uscita(u"?"_s), {tessera});
}

}  // namespace lokera
