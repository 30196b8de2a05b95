// The list of keys, and what is told of its rows.
#include "cards/frm_tessere.h"
#include "cards/maschera.h"
#include "forms/messaggi.h"

namespace lokera {

using namespace Qt::StringLiterals;

namespace {
constexpr int ultima_mostrata = 143;  // the board has no lamp beyond
}

void frm_tessere::elenca_tessere() {
  QString sql = u"SELECT * FROM tessere_chiavi "_s;
  QVariantList valori;
  if (!comboLKR.Text().isEmpty()) {
    sql += u" where lokera = ?"_s;
    valori << lokera();
  }
  sql += optOrdPos.Value() ? u" ORDER BY posizione"_s : u" ORDER BY descrizione"_s;
  leggi_titolari();
  griglia_.popola(servizi_.archivio, sql, valori);
  grd.Row(0);
  lblRecords_LOK.Caption = traduci(u"Records presenti nella Lokera n. "_s);
  lblRecords_DB.Caption =
      traduci(u"Records presenti nel DataBase n. "_s) + u"%1"_s.arg(grd.Rows(), 4, 10, '0'_L1);
  grd_RowColChange();
}

void frm_tessere::leggi_titolari() {
  titolari_.clear();
  Recordset rs;
  Errore e = rs.Open(
      u"select distinct k.operatore, t.intestazione from tessere_chiavi as k inner join"
      " tessere_operatori as t on k.operatore = t.codice"_s,
      servizi_.archivio);
  for (; !e.fallito() && !rs.eof(); e = rs.MoveNext())
    titolari_.insert(rs.testo(u"operatore"), rs.testo(u"intestazione"));
}

void frm_tessere::grd_RowColChange() {
  grd.ActiveRowStyleSet = u"bold"_s;
  campi_da_riga();
}

void frm_tessere::campi_da_riga() {
  const int riga = grd.Row();
  txtCodice.Text = txtCodiceVer.Text = grd.cella(riga, u"codice");
  Text1.Text = grd.cella(riga, u"descrizione").trimmed();
  comboG.Value(grd.cella(riga, u"gruppo"));
  if (!nuovo_record) Text2.Text = grd.cella(riga, u"posizione");
  mostra_note();
}

// The mask of a card counts the keys of all cabinets by position.
void frm_tessere::mostra_note() {
  QStringList note;
  const RigaChiave chiave = dai_campi();
  if (chiave.posizione > ultima_mostrata) note += traduci(u"Posizione oltre l'ultima del tabellone (143)."_s);
  const auto altra = archivio_.stessa_posizione(chiave);
  if (chiave.posizione >= 0 && !altra.fallito() && *altra)
    note += traduci(u"Stessa posizione con altro gruppo nella lokera"_s) +
            u" %1: %2 %3"_s.arg((*altra)->lokera).arg((*altra)->codice, (*altra)->descrizione.trimmed());
  lblNota.Caption = note.join(u"  "_s);
}

void frm_tessere::conta_trattenute() {
  const auto quante = coda_.trattenute(lokera());
  lblTrattenute.Caption = quante.fallito() || *quante == 0
                              ? QString()
                              : traduci(u"Tessere in attesa di una chiave: ripetere la registrazione."_s) +
                                    u" (%1)"_s.arg(*quante);
}

// A tag that was read has its own words, by cabinet; the same code typed has others.
void frm_tessere::controlla_doppia() {
  const QString codice = txtCodice.Text().trimmed();
  const auto altra = archivio_.trova(codice);
  if (altra.fallito() || !*altra || codice == sospesa_) return;
  const RigaChiave& riga = **altra;
  const bool qui = riga.lokera == lokera();
  const QString testo = traduci(u"Chiave "_s) + codice + u' ' +
                        (qui ? traduci(u"già esistente in questa lokera!"_s)
                             : traduci(u"già esistente nella lokera"_s) + u" nr. %1! "_s.arg(riga.lokera)) +
                        (qui ? u" ( "_s : u"( "_s) + riga.descrizione.trimmed() + u" )"_s;
  txtCodice.Text = txtCodiceVer.Text = QString();
  servizi_.griglie.messaggi.mostra(testo);
}

void frm_tessere::txtCodice_LostFocus() {
  if (!nuovo_record || in_attesa()) return;
  const Attesa attesa(*this);
  if (doppia(txtCodice.Text().trimmed(), sospesa_)) txtCodice.Text = txtCodiceVer.Text = QString();
}

// Whether a row other than `propria` has the code, which is told; also when that can't be known.
bool frm_tessere::doppia(const QString& codice, const QString& propria) {
  if (codice.isEmpty() || codice.compare(propria, Qt::CaseInsensitive) == 0) return false;
  const auto altra = archivio_.trova(codice);
  if (altra.fallito())
    mostra_errore(altra.errore());
  else if (*altra)
    servizi_.griglie.messaggi.mostra(traduci(u"Tessera "_s) + codice + u' ' +
                                     traduci(u"già esistente nel sistema!"_s) + u" ( "_s +
                                     (*altra)->descrizione.trimmed() + u" )"_s);
  return altra.fallito() || *altra;
}

}  // namespace lokera
