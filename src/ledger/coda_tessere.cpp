#include "ledger/coda_tessere.h"

#include "store/recordset.h"

namespace lokera {

using namespace Qt::StringLiterals;

namespace {

QString lettera(OperazioneCoda operazione) {
  return QString(QChar(static_cast<char16_t>(operazione)));
}

}  // namespace

QString CodaTessere::tutte_in_uscita() {
  return u"select q.ID_tessera from aggiorn_tessere_oper as q where q.operazione = 'D' and not exists "
         u"(select 1"
         " from tessere_da_conservare as m where m.ID_tessera = q.ID_tessera and m.ID_lokera = q.ID_lokera)"_s;
}

QString CodaTessere::in_uscita(const QString& tessera) {
  return u"exists (%1 and q.ID_tessera = %2)"_s.arg(tutte_in_uscita(), tessera);
}

Errore CodaTessere::accoda_scritture_se_mancano(std::span<const TesseraInLokera> coppie) {
  while (!coppie.empty()) {
    // Few wordings, since each is prepared once.
    const size_t quante = coppie.size() < piu_scritture ? 1 : piu_scritture;
    if (Errore e = accoda_insieme(coppie.first(quante)); e.fallito()) return e;
    coppie = coppie.subspan(quante);
  }
  return {};
}

Errore CodaTessere::accoda_insieme(std::span<const TesseraInLokera> coppie) {
  QString righe = u"(?, ?)"_s;
  QVariantList valori;
  for (const auto& [tessera, lokera] : coppie) valori << tessera << lokera;
  for (size_t i = 1; i < coppie.size(); ++i) righe += u", (?, ?)"_s;
  return c_.Execute(
      u"insert into aggiorn_tessere_oper (ID_tessera, ID_lokera, operazione) with nuove (tessera, lokera) as"
      " (values %1) select tessera, lokera, 'I' from nuove where not exists (select 1 from "
      "aggiorn_tessere_oper"
      " where ID_tessera = nuove.tessera and ID_lokera = nuove.lokera) and not %2"_s.arg(
          righe, in_uscita(u"nuove.tessera"_s)),
      valori);
}

Errore CodaTessere::elimina_tessera(const QString& tessera) {
  return tutto_o_niente(c_, [&]() -> Errore {
    if (Errore e = togli_segni(tessera); e.fallito()) return e;
    if (Errore e =
            c_.Execute(u"update aggiorn_tessere_oper set operazione = 'D' where ID_tessera = ?"_s, {tessera});
        e.fallito())
      return e;
    if (Errore e = c_.Execute(
            u"insert into aggiorn_tessere_oper (ID_tessera, ID_lokera, operazione) select p.ID_tessera,"
            " p.ID_lokera, 'D' from posiz_tessere_oper as p where p.ID_tessera = ? and not exists (select 1"
            " from aggiorn_tessere_oper as q where q.ID_tessera = p.ID_tessera and q.ID_lokera ="
            " p.ID_lokera)"_s,
            {tessera});
        e.fallito())
      return e;
    return esce_se_servita(tessera);
  });
}

Esito<std::vector<RigaCoda>> CodaTessere::per_lokera(qlonglong lokera) {
  std::vector<RigaCoda> righe;
  Recordset rs;
  Errore e = rs.Open(
      u"select aggiorn_tessere_oper.*, tessere_operatori.intestazione from (aggiorn_tessere_oper inner join"
      " tessere_operatori on aggiorn_tessere_oper.id_tessera = tessere_operatori.codice) where"
      " aggiorn_tessere_oper.ID_lokera = ?"_s,
      c_, {lokera});
  while (!e.fallito() && !rs.eof()) {
    righe.push_back({rs.testo(u"id_tessera"), rs.testo(u"intestazione"), rs.testo(u"operazione")});
    e = rs.MoveNext();
  }
  if (e.fallito()) return e;
  return righe;
}

Esito<std::optional<OperazioneCoda>> CodaTessere::in_attesa(const QString& tessera, qlonglong lokera) {
  std::optional<OperazioneCoda> operazione;
  Recordset rs;
  if (const Errore e =
          rs.Open(u"select operazione from aggiorn_tessere_oper where ID_tessera = ? and ID_lokera = ?"_s, c_,
                  {tessera, lokera});
      e.fallito())
    return e;
  if (rs.eof()) return operazione;
  const bool elimina = rs.testo(u"operazione") == lettera(OperazioneCoda::cancellazione);
  operazione = elimina ? OperazioneCoda::cancellazione : OperazioneCoda::scrittura;
  return operazione;
}

Errore CodaTessere::servita_scrittura(const QString& tessera, qlonglong lokera) {
  return togli(tessera, lokera, OperazioneCoda::scrittura);
}

Errore CodaTessere::servita_cancellazione(const QString& tessera, qlonglong lokera) {
  return tutto_o_niente(c_, [&]() -> Errore {
    const auto attesa = in_attesa(tessera, lokera);
    if (attesa.fallito()) return attesa.errore();
    if (*attesa == OperazioneCoda::scrittura) return {};
    const auto conservata = esiste(
        u"select 1 from tessere_da_conservare where ID_tessera = ? and ID_lokera = ?"_s, {tessera, lokera});
    if (conservata.fallito()) return conservata.errore();
    const auto riscrivi = da_riscrivere(tessera, lokera);
    if (riscrivi.fallito()) return riscrivi.errore();
    if (Errore e = togli(tessera, lokera, OperazioneCoda::cancellazione); e.fallito()) return e;
    if (*riscrivi) return accoda_scritture(TessereScelte::coppia(tessera, lokera));
    return *conservata ? Errore{} : esce_se_servita(tessera);
  });
}

Errore CodaTessere::togli(const QString& tessera, qlonglong lokera, OperazioneCoda operazione) {
  return tutto_o_niente(c_, [&] {
    const auto righe = c_.esegui_contando(
        u"delete from aggiorn_tessere_oper where ID_tessera = ? and ID_lokera = ? and operazione = ?"_s,
        {tessera, lokera, lettera(operazione)});
    if (righe.fallito() || *righe == 0) return righe.errore();
    return c_.Execute(u"delete from tessere_da_conservare where ID_tessera = ? and ID_lokera = ?"_s,
                      {tessera, lokera});
  });
}

Errore CodaTessere::togli_segni(const QString& tessera) {
  return c_.Execute(u"delete from tessere_da_conservare where ID_tessera = ?"_s, {tessera});
}

// While a cabinet waits the card stays, and none of the deletions that wait may keep it any more.
Errore CodaTessere::esce_se_servita(const QString& tessera) {
  const auto altrove = esiste(u"select 1 from aggiorn_tessere_oper where ID_tessera = ?"_s, {tessera});
  if (altrove.fallito()) return altrove.errore();
  if (*altrove) return togli_segni(tessera);
  if (Errore e = c_.Execute(u"delete FROM gruppi_tessera WHERE tessera = ?"_s, {tessera}); e.fallito())
    return e;
  return c_.Execute(u"delete FROM tessere_operatori WHERE codice = ?"_s, {tessera});
}

Esito<bool> CodaTessere::esiste(const QString& sql, const QVariantList& valori) {
  Recordset rs;
  if (const Errore e = rs.Open(sql, c_, valori); e.fallito()) return e;
  return !rs.eof();
}

}  // namespace lokera
