// Between the bound controls and the columns of a record.
#include "forms/controlli.h"
#include "forms/legame.h"
#include "forms/zan_form.h"

namespace lokera {

namespace {

void salva(Recordset& rs, Controllo& controllo, const Legame& l) {
  const int i = rs.indice(l.colonna);
  if (i < 0) return;
  if (const QVariant valore = controllo.valore(rs.campo(i), l.valore); valore.isValid())
    (void)rs.imposta(i, valore);
}

}  // namespace

void ZanForm::popola(const QString& sql, const QString& gruppo) {
  Recordset rs;
  if (!finestra_ || rs.Open(sql, db_.connessione_db).fallito() || rs.eof()) return;
  for (Controllo* controllo : finestra_->Controls()) {
    const Legame l = legame(*controllo);
    if (!l.partecipa_a_popola(gruppo)) continue;
    const QVariant valore = rs.valore(l.colonna);
    if (valore.isValid() && !valore.isNull()) controllo->mostra_valore(valore, l.valore);
  }
}

void ZanForm::salva_campi(Recordset& rs, const QString& gruppo) {
  if (!finestra_) return;
  for (Controllo* controllo : finestra_->Controls()) {
    const Legame l = legame(*controllo);
    if (l.partecipa_a_salva(gruppo)) salva(rs, *controllo, l);
  }
}

}  // namespace lokera
