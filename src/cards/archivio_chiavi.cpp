#include "cards/archivio_chiavi.h"

#include "platform/letterali.h"

namespace lokera {

using namespace Qt::StringLiterals;

namespace {

RigaChiave riga_di(const Recordset& rs) {
  return {rs.testo(u"codice"), rs.numero(u"lokera"), rs.numero(u"posizione"), rs.testo(u"descrizione"),
          rs.numero(u"gruppo")};
}

}  // namespace

Esito<qlonglong> ArchivioChiavi::posizione_libera(qlonglong lokera) {
  Recordset rs;
  Errore e = rs.Open(u"SELECT posizione FROM tessere_chiavi where lokera = ? ORDER BY posizione"_s, archivio_,
                     {lokera});
  qlonglong libera = 0;
  for (; !e.fallito() && !rs.eof() && rs.numero(u"posizione") == libera; e = rs.MoveNext()) ++libera;
  if (e.fallito()) return e;
  return libera;
}

Esito<std::optional<QString>> ArchivioChiavi::occupata_da(qlonglong lokera, qlonglong posizione,
                                                          const QString& chiave) {
  Recordset rs;
  if (Errore e = rs.Open(u"SELECT * FROM tessere_chiavi WHERE posizione = ? and codice <> ? and lokera = ?"_s,
                         archivio_, {posizione, chiave, lokera});
      e.fallito())
    return e;
  return rs.eof() ? std::nullopt : std::optional(rs.testo(u"codice"));
}

Esito<std::optional<RigaChiave>> ArchivioChiavi::trova(const QString& codice) {
  Recordset rs;
  if (Errore e = rs.Open(u"SELECT * FROM tessere_chiavi WHERE codice = ?"_s, archivio_, {codice});
      e.fallito())
    return e;
  return rs.eof() ? std::nullopt : std::optional(riga_di(rs));
}

Esito<std::optional<RigaChiave>> ArchivioChiavi::stessa_posizione(const RigaChiave& chiave) {
  Recordset rs;
  if (Errore e = rs.Open(
          u"SELECT * FROM tessere_chiavi WHERE posizione = ? and lokera <> ? and gruppo <> ? ORDER BY lokera"_s,
          archivio_, {chiave.posizione, chiave.lokera, chiave.gruppo});
      e.fallito())
    return e;
  return rs.eof() ? std::nullopt : std::optional(riga_di(rs));
}

Errore ArchivioChiavi::prima_della_lokera(const QString& chiave, const RigaChiave& nuova, bool anche_riga) {
  return in_transazione(archivio_, [&]() -> Errore {
    const auto vecchia = trova(chiave);
    if (vecchia.fallito()) return vecchia.errore();
    Errore e;
    if (*vecchia && (*vecchia)->gruppo != nuova.gruppo)
      e = coda_.accoda_cancellazioni(TessereScelte::del_gruppo((*vecchia)->gruppo, nuova.lokera),
                                     MotivoConservare::chiave_tolta);
    if (!e.fallito())
      e = coda_.accoda_cancellazioni(TessereScelte::del_gruppo(nuova.gruppo, nuova.lokera),
                                     MotivoConservare::attende_chiave);
    if (!e.fallito() && anche_riga) e = scrivi(chiave, nuova);
    return e.fallito() || !anche_riga ? e : accoda_altrove(*vecchia, nuova);
  });
}

// A name or a code alone changes no mask.
Errore ArchivioChiavi::accoda_altrove(const std::optional<RigaChiave>& prima, const RigaChiave& dopo) {
  if (prima && prima->posizione == dopo.posizione && prima->gruppo == dopo.gruppo) return {};
  Errore e;
  if (prima && prima->gruppo != dopo.gruppo) e = coda_.accoda_altrove(prima->gruppo, prima->lokera);
  return e.fallito() ? e : coda_.accoda_altrove(dopo.gruppo, dopo.lokera);
}

Errore ArchivioChiavi::scrivi(const QString& chiave, const RigaChiave& nuova) {
  Recordset rs;
  Errore e =
      rs.Open(u"SELECT * FROM tessere_chiavi WHERE codice = ?"_s, archivio_, {chiave}, Cursore::aggiornabile);
  if (!e.fallito() && rs.eof()) {
    e = rs.AddNew();
    if (!e.fallito()) e = rs.imposta(u"operatore", u" "_s);
  }
  const std::pair<QStringView, QVariant> campi[] = {{u"codice", nuova.codice},
                                                    {u"lokera", nuova.lokera},
                                                    {u"posizione", nuova.posizione},
                                                    {u"descrizione", nuova.descrizione},
                                                    {u"gruppo", nuova.gruppo}};
  for (const auto& [campo, valore] : campi)
    if (!e.fallito()) e = rs.imposta(campo, valore);
  return e.fallito() ? e : rs.Update();
}

Errore ArchivioChiavi::registrata_in_lokera(const RigaChiave& chiave) {
  return coda_.accoda_scritture(TessereScelte::del_gruppo(chiave.gruppo, chiave.lokera));
}

Errore ArchivioChiavi::elimina(const RigaChiave& chiave) {
  return in_transazione(archivio_, [&] {
    Errore e = coda_.accoda_cancellazioni(TessereScelte::del_gruppo(chiave.gruppo, chiave.lokera),
                                          MotivoConservare::chiave_tolta);
    if (!e.fallito()) e = coda_.accoda_altrove(chiave.gruppo, chiave.lokera);
    if (e.fallito()) return e;
    return archivio_.Execute(u"DELETE FROM tessere_chiavi WHERE codice = ?"_s, {chiave.codice});
  });
}

}  // namespace lokera
