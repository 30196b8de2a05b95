#include "commissioning/archivio_lokere.h"

#include "platform/letterali.h"

namespace lokera {

using namespace Qt::StringLiterals;

namespace {

// What is known of the records in a cabinet.
constexpr QStringView tabelle_di_lokera[] = {u"aggiorn_tessere_oper", u"posiz_tessere_oper",
                                             u"tessere_da_conservare", u"cancellazioni_da_confermare"};

}  // namespace

Errore ArchivioLokere::apri(Recordset& rs, qlonglong id) {
  return rs.Open(u"SELECT * FROM parametri where ID = ?"_s, archivio_, {id});
}

Esito<bool> ArchivioLokere::esiste(qlonglong id) {
  Recordset rs;
  if (Errore e = apri(rs, id); e.fallito()) return e;
  return !rs.eof();
}

Errore ArchivioLokere::registra(qlonglong id, qlonglong nuovo, std::span<const ValoreLokera> valori) {
  return in_transazione(archivio_, [&] {
    Errore e = scrivi(id, nuovo, valori);
    if (!e.fallito() && id != 0 && id != nuovo) e = rinumera(id, nuovo);
    return e;
  });
}

Errore ArchivioLokere::scrivi(qlonglong id, qlonglong nuovo, std::span<const ValoreLokera> valori) {
  Recordset rs;
  Errore e = rs.Open(u"SELECT * FROM parametri where ID = ?"_s, archivio_, {id}, Cursore::aggiornabile);
  if (!e.fallito() && rs.eof()) e = rs.AddNew();
  if (!e.fallito()) e = rs.imposta(u"id", nuovo);
  for (const ValoreLokera& v : valori)
    if (!e.fallito()) e = rs.imposta(v.colonna, v.valore);
  return e.fallito() ? e : rs.Update();
}

// What stands under the new number is left from a cabinet that was deleted.
Errore ArchivioLokere::rinumera(qlonglong id, qlonglong nuovo) {
  Errore e = archivio_.Execute(u"update tessere_chiavi set lokera = ? where lokera = ?"_s, {nuovo, id});
  for (const QStringView t : tabelle_di_lokera) {
    if (!e.fallito()) e = archivio_.Execute(u"delete from %1 where ID_lokera = ?"_s.arg(t), {nuovo});
    if (!e.fallito())
      e = archivio_.Execute(u"update %1 set ID_lokera = ? where ID_lokera = ?"_s.arg(t), {nuovo, id});
  }
  return e;
}

Errore ArchivioLokere::imposta_indirizzo(qlonglong id, const QString& ip_lokera) {
  return archivio_.Execute(u"update parametri set ip_lokera = ? where ID = ?"_s, {ip_lokera, id});
}

Errore ArchivioLokere::elimina(qlonglong id) {
  return in_transazione(archivio_, [&] {
    Errore e = archivio_.Execute(u"delete from parametri where ID = ?"_s, {id});
    return e.fallito() ? e : archivio_.Execute(u"delete from tessere_chiavi where lokera = ?"_s, {id});
  });
}

}  // namespace lokera
