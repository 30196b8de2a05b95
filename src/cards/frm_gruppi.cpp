#include "cards/frm_gruppi.h"

#include "forms/messaggi.h"
#include "forms/prepara_liste.h"
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

frm_gruppi::frm_gruppi(ElencoFinestre& elenco, Connection& archivio, ServiziGriglia& servizi,
                       const TabellaGruppi& tabella)
    : Finestra(elenco, tabella.finestra),
      grd(*this, u"grd"_s),
      Command5(*this, u"Command5"_s, u"registra modifiche"_s),
      archivio_(archivio),
      servizi_(servizi),
      tabella_(tabella),
      griglia_(grd, servizi) {
  apri_a_modifiche({&grd});
  // A list that isn't whole must not replace the table.
  Command5.Enabled = false;
  Command5.Click = [this] { Command5_Click(); };
}

void frm_gruppi::Form_Load() {
  prepara_liste(*this, servizi_, archivio_, tabella_.titolo, {{griglia_, tabella_.carica}});
  servizi_.attesa.cedi();
  Command5.Enabled = griglia_.popola(archivio_, tabella_.carica);
}

void frm_gruppi::Command5_Click() {
  const Attesa attesa(*this);
  if (!sostituisci_tabelle(archivio_, {{griglia_, tabella_.cancella, tabella_.salva}})) return;
  grd.Row(0);
  avvisa(servizi_.traduttore, servizi_.messaggi, u"Registrazione eseguita!"_s);
}

}  // namespace lokera
