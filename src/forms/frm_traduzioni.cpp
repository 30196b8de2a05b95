#include "forms/frm_traduzioni.h"

#include "forms/messaggi.h"
#include "forms/prepara_liste.h"

namespace lokera {

using namespace Qt::StringLiterals;

frm_traduzioni::frm_traduzioni(ElencoFinestre& elenco, Database& db, ServiziGriglia& servizi,
                               const Clock& orologio)
    : Finestra(elenco, u"frm_traduzioni"_s),
      grd(*this, u"grd"_s),
      archivio_(db.connessione_db),
      servizi_(servizi),
      griglia_(grd, servizi),
      maschera_(db, servizi.messaggi, orologio) {
  maschera_.Form(this);
  apri_a_modifiche({&grd});
  grd.AfterUpdate = [this](int riga) { grd_AfterUpdate(riga); };
  grd.BeforeDelete = [this](int riga) { return grd_BeforeDelete(riga); };
}

void frm_traduzioni::Form_Load() {
  prepara_liste(*this, servizi_, archivio_, u"Traduzioni"_s,
                {{griglia_, u"Select top 1 * from traduzioni order by italiano"_s}});
  allarga(u"italiano");
  allarga(u"tedesco");
  griglia_.popola(archivio_, u"Select * from traduzioni order by italiano"_s);
}

bool frm_traduzioni::Form_Unload() {
  grd.Update();
  return true;
}

/// Half of the list for the column, with room for the row marks and the scroll bar.
void frm_traduzioni::allarga(QStringView campo) {
  if (grd.Width() > 2000) con_colonna(grd, campo, [&](Colonna& c) { c.Width = grd.Width() / 2 - 1000; });
}

/// Returns what went wrong, empty for nothing. No record is held when it returns.
QString frm_traduzioni::registra(const QString& italiano, const QString& tedesco) {
  Recordset rs;
  if (const Errore e = rs.Open(u"Select * from traduzioni where  italiano = ?"_s, archivio_, {italiano},
                               Cursore::aggiornabile);
      e.fallito())
    return e.descrizione;
  Errore errore;
  if (rs.eof()) errore = rs.AddNew();
  if (!errore.fallito()) errore = rs.imposta(u"italiano", italiano);
  if (!errore.fallito()) errore = rs.imposta(u"tedesco", tedesco);
  if (!errore.fallito()) maschera_.update_record(rs);
  QString testo = errore.fallito() ? errore.descrizione : maschera_.errore();
  if (!testo.isEmpty()) rs.CancelUpdate();
  return testo;
}

void frm_traduzioni::grd_AfterUpdate(int riga) {
  const QString errore = registra(grd.cella(riga, u"italiano"), grd.cella(riga, u"tedesco"));
  if (errore.isEmpty()) return;
  const Attesa attesa(*this);
  servizi_.messaggi.mostra(servizi_.traduttore.traduci(u"errore in registrazione voce"_s) + u'\r' + errore);
}

bool frm_traduzioni::grd_BeforeDelete(int riga) {
  const Attesa attesa(*this);
  const QString italiano = grd.cella(riga, u"italiano");
  if (!conferma(servizi_.traduttore, servizi_.messaggi, u"Vuoi eliminare la voce?"_s)) return false;
  const Errore errore = archivio_.Execute(u"delete from traduzioni where  italiano = ?"_s, {italiano});
  if (errore.fallito()) servizi_.messaggi.mostra(errore.descrizione);
  return !errore.fallito();
}

}  // namespace lokera
