#include "cards/archivio_tessere.h"

#include "platform/letterali.h"
#include "platform/momento.h"

namespace lokera {

using namespace Qt::StringLiterals;

Esito<std::optional<QString>> ArchivioTessere::titolare(const QString& codice) {
  Recordset rs;
  if (Errore e = rs.Open(u"SELECT * FROM tessere_operatori WHERE codice = ? and not %1"_s.arg(
                             CodaTessere::in_uscita(u"tessere_operatori.codice"_s)),
                         archivio_, {codice});
      e.fallito())
    return e;
  return rs.eof() ? std::nullopt : std::optional(rs.testo(u"intestazione"));
}

Esito<QList<qlonglong>> ArchivioTessere::gruppi(const QString& tessera) {
  QList<qlonglong> tutti;
  Recordset rs;
  Errore e = rs.Open(u"SELECT codice FROM gruppi_tessera WHERE tessera = ?"_s, archivio_, {tessera});
  for (; !e.fallito() && !rs.eof(); e = rs.MoveNext()) tutti += rs.numero(u"codice");
  if (e.fallito()) return e;
  return tutti;
}

Esito<QStringList> ArchivioTessere::chiavi_in_mano(const QString& tessera) {
  QStringList chiavi;
  if (tessera.trimmed().isEmpty()) return chiavi;
  Recordset rs;
  Errore e = rs.Open(u"SELECT descrizione FROM tessere_chiavi WHERE operatore = ? ORDER BY uscita"_s,
                     archivio_, {tessera});
  for (; !e.fallito() && !rs.eof(); e = rs.MoveNext()) chiavi += rs.testo(u"descrizione").trimmed();
  if (e.fallito()) return e;
  return chiavi;
}

Errore ArchivioTessere::registra(const QString& identita, const RigaTessera& riga,
                                 const QList<qlonglong>& gruppi) {
  const auto scrivi_tutto = [&] { return scrivi(riga, gruppi); };
  if (identita.isEmpty()) return coda_.registra_nuova_tessera(riga.codice, scrivi_tutto);
  return tutto_o_niente(archivio_, [&] {
    Errore e;
    if (identita.compare(riga.codice, Qt::CaseInsensitive) != 0)
      e = coda_.cambia_codice(identita, riga.codice);
    return e.fallito() ? e : coda_.registra_tessera(riga.codice, scrivi_tutto);
  });
}

Errore ArchivioTessere::scrivi(const RigaTessera& riga, const QList<qlonglong>& gruppi) {
  Recordset rs;
  Errore e = rs.Open(u"SELECT * FROM tessere_operatori WHERE codice = ?"_s, archivio_, {riga.codice},
                     Cursore::aggiornabile);
  if (!e.fallito() && rs.eof()) e = rs.AddNew();
  const std::pair<QStringView, QVariant> campi[] = {{u"codice", riga.codice},
                                                    {u"intestazione", riga.intestazione},
                                                    {u"valido_dal", momento(riga.valido_dal)},
                                                    {u"valido_al", momento(riga.valido_al)},
                                                    {u"posizione", riga.posizione},
                                                    {u"gruppo", riga.gruppo},
                                                    {u"NrMaxPrelievi", riga.massimo}};
  for (const auto& [campo, valore] : campi)
    if (!e.fallito()) e = rs.imposta(campo, valore);
  if (!e.fallito()) e = rs.Update();
  if (!e.fallito()) e = archivio_.Execute(u"DELETE FROM gruppi_tessera WHERE tessera = ?"_s, {riga.codice});
  for (const qlonglong gruppo : gruppi)
    if (!e.fallito())
      e = archivio_.Execute(u"insert into gruppi_tessera (tessera, codice) values (?, ?)"_s,
                            {riga.codice, gruppo});
  return e;
}

}  // namespace lokera
