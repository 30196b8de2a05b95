#include "forms/frm_traduzioni.h"

#include "forms/messaggi.h"

namespace lokera {

using namespace Qt::StringLiterals;

frm_traduzioni::frm_traduzioni(const Ambiente& a)
    : Finestra(a.finestre, u"frm_traduzioni"_s),
      grd(*this, u"grd"_s),
      a_(a),
      griglia_(grd, a_.griglie),
      maschera_(a.db, a.messaggi, a.orologio) {
  maschera_.Form(this);
  grd.AllowAddNew = grd.AllowDelete = grd.AllowUpdate = true;
  grd.AfterUpdate = [this](int riga) { grd_AfterUpdate(riga); };
  grd.BeforeDelete = [this](int riga) { return grd_BeforeDelete(riga); };
}

void frm_traduzioni::Form_Load() {
  Connection& c = a_.db.connessione_db;
  Caption(a_.traduttore.traduci(u"Traduzioni"_s));
  griglia_.layout(c, nome(), grd.nome(), c, u"Select top 1 * from traduzioni order by italiano"_s,
                  grd.Width());
  allarga(u"italiano");
  allarga(u"tedesco");
  griglia_.popola(c, u"Select * from traduzioni order by italiano"_s);
  if (a_.db.lingua_interfaccia == 1) a_.traduttore.traduci_form(*this);
}

bool frm_traduzioni::Form_Unload() {
  grd.Update();
  return true;
}

/// Half of the list for the column, with room for the row marks and the scroll bar.
void frm_traduzioni::allarga(QStringView campo) {
  const int i = grd.colonna(campo);
  if (i < 0 || grd.Width() <= 2000) return;
  Colonna c = grd.Columns(i);
  c.Width = grd.Width() / 2 - 1000;
  grd.imposta_colonna(i, c);
}

/// Returns what went wrong, empty for nothing. No record is held when it returns.
QString frm_traduzioni::registra(const QString& italiano, const QString& tedesco) {
  Recordset rs;
  if (const Errore e = rs.Open(u"Select * from traduzioni where  italiano = ?"_s, a_.db.connessione_db,
                               {italiano}, Cursore::aggiornabile);
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
  a_.messaggi.mostra(a_.traduttore.traduci(u"errore in registrazione voce"_s) + u'\r' + errore);
}

bool frm_traduzioni::grd_BeforeDelete(int riga) {
  const Attesa attesa(*this);
  const QString italiano = grd.cella(riga, u"italiano");
  if (!conferma(a_.traduttore, a_.messaggi, u"Vuoi eliminare la voce?"_s)) return false;
  const Errore errore =
      a_.db.connessione_db.Execute(u"delete from traduzioni where  italiano = ?"_s, {italiano});
  if (errore.fallito()) a_.messaggi.mostra(errore.descrizione);
  return !errore.fallito();
}

}  // namespace lokera
