#include "cards/frm_gruppi.h"

#include "forms/messaggi.h"
#include "forms/salvataggio_lista.h"

namespace lokera {

using namespace Qt::StringLiterals;

TabellaGruppi gruppi_di_chiavi() {
  return {u"frm_gruppi"_s, u"Gruppi di chiavi"_s, u"Select * from gruppi order by codice"_s,
          u"delete from gruppi"_s, u"select * from gruppi"_s};
}

TabellaGruppi gruppi_di_utenti() {
  return {u"frm_gruppi_utenti"_s, u"Gruppi di utenti"_s, u"SELECT * FROM gruppi_utente ORDER BY codice"_s,
          u"DELETE FROM gruppi_utente"_s, u"SELECT * FROM gruppi_utente"_s};
}

frm_gruppi::frm_gruppi(const Ambiente& a, const TabellaGruppi& tabella)
    : Finestra(a.finestre, tabella.finestra),
      grd(*this, u"grd"_s),
      Command5(*this, u"Command5"_s, u"registra modifiche"_s),
      a_(a),
      tabella_(tabella),
      griglia_(grd, a_.griglie) {
  grd.AllowAddNew = grd.AllowDelete = grd.AllowUpdate = true;
  // A list that isn't whole must not replace the table.
  Command5.Enabled = false;
  Command5.Click = [this] { Command5_Click(); };
}

void frm_gruppi::Form_Load() {
  Connection& c = a_.db.connessione_db;
  Caption(a_.traduttore.traduci(tabella_.titolo));
  griglia_.layout(c, nome(), grd.nome(), c, tabella_.carica, grd.Width());
  a_.griglie.attesa.cedi();
  Command5.Enabled = griglia_.popola(c, tabella_.carica);
  if (a_.db.lingua_interfaccia == 1) a_.traduttore.traduci_form(*this);
}

void frm_gruppi::Command5_Click() {
  const Attesa attesa(*this);
  if (!sostituisci_tabelle(a_.db.connessione_db, {{griglia_, tabella_.cancella, tabella_.salva}})) return;
  grd.Row(0);
  avvisa(a_.traduttore, a_.messaggi, u"Registrazione eseguita!"_s);
}

}  // namespace lokera
