// Between the bound controls and the columns of a record.
#include "forms/formato.h"
#include "forms/legame.h"
#include "forms/ss_ole_db_combo.h"
#include "forms/zan_form.h"

namespace lokera {

using namespace Qt::StringLiterals;

namespace {

/// True as the store, a check box and the numbers of old rows spell it.
bool vero(const QVariant& valore) {
  if (valore.typeId() == QMetaType::Bool) return valore.toBool();
  const double n = valore.toDouble();
  return n == 1 || n == -1;
}

void mostra(Controllo& controllo, const Legame& l, const QVariant& valore) {
  if (auto* t = dynamic_cast<TextBox*>(&controllo)) t->Text = formatta(valore);
  if (auto* c = dynamic_cast<ComboBox*>(&controllo)) c->Text = formatta(valore);
  if (auto* c = dynamic_cast<SSOleDBCombo*>(&controllo)) c->Text = formatta(valore);
  if (auto* m = dynamic_cast<MaskEdBox*>(&controllo)) m->Text = formatta(valore, u"dd/mm/yyyy");
  if (auto* e = dynamic_cast<Label*>(&controllo)) e->Caption = formatta(valore);
  if (auto* c = dynamic_cast<CheckBox*>(&controllo)) c->Value = vero(valore) ? 1 : 0;
  if (auto* o = dynamic_cast<OptionButton*>(&controllo))
    o->Value = formatta(valore).trimmed().compare(l.valore, Qt::CaseInsensitive) == 0;
}

void salva_testo(Recordset& rs, TextBox& casella, const Campo& campo) {
  if (e_testo(campo.tipo)) {
    QString testo = casella.Text().trimmed();
    if (campo.dimensione > 0) testo.truncate(campo.dimensione);
    casella.Text = testo;
    (void)rs.imposta(campo.nome, testo.isEmpty() ? u" "_s : testo);
    return;
  }
  const auto numero = casella.Text().contains(u',') ? std::nullopt : leggi_numero(casella.Text());
  if (e_numero(campo.tipo) && numero) (void)rs.imposta(campo.nome, *numero);
}

void salva(Recordset& rs, Controllo& controllo, const Legame& l) {
  const int i = rs.indice(l.colonna);
  if (i < 0) return;
  const Campo& campo = rs.campo(i);
  if (auto* t = dynamic_cast<TextBox*>(&controllo)) salva_testo(rs, *t, campo);
  if (auto* c = dynamic_cast<CheckBox*>(&controllo)) (void)rs.imposta(campo.nome, c->Value() == 1 ? 1 : 0);
  if (auto* e = dynamic_cast<Label*>(&controllo)) (void)rs.imposta(campo.nome, e->Caption());
  if (auto* o = dynamic_cast<OptionButton*>(&controllo); o && o->Value())
    (void)rs.imposta(campo.nome, l.valore);
}

}  // namespace

void ZanForm::popola(const QString& sql, const QString& gruppo) {
  Recordset rs;
  if (!finestra_ || rs.Open(sql, db_.connessione_db).fallito() || rs.eof()) return;
  for (Controllo* controllo : finestra_->Controls()) {
    const Legame l = legame(*controllo);
    if (!l.partecipa_a_popola(gruppo)) continue;
    const QVariant valore = rs.valore(l.colonna);
    if (valore.isValid() && !valore.isNull()) mostra(*controllo, l, valore);
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
