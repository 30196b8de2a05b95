#include "forms/finestra.h"

#include <algorithm>
#include <utility>

#include "forms/controlli.h"

namespace lokera {

namespace {
bool stesso_nome(QStringView a, QStringView b) {
  return a.compare(b, Qt::CaseInsensitive) == 0;
}
}  // namespace

Finestra* ElencoFinestre::trova(QStringView nome) const {
  const auto it = std::ranges::find_if(finestre_, [&](Finestra* f) { return stesso_nome(f->nome(), nome); });
  return it == finestre_.end() ? nullptr : *it;
}

Finestra::Finestra(ElencoFinestre& elenco, QString nome, PostoFinestra posto)
    : elenco_(elenco), nome_(std::move(nome)), posto_(posto) {
  elenco_.finestre_.push_back(this);
}

Finestra::~Finestra() {
  std::erase(elenco_.finestre_, this);
  if (vista_) vista_->distrutta(*this);
}

Finestra::Attesa::Attesa(Finestra& f) : f_(f) {
  if (f_.attese_++ == 0) f_.attesa_cambiata();
}

Finestra::Attesa::~Attesa() {
  if (--f_.attese_ > 0) return;
  f_.attesa_cambiata();
  if (f_.chiusura_chiesta_) f_.chiudi();
}

void Finestra::Caption(const QString& titolo) {
  titolo_ = titolo;
  if (vista_) vista_->cambiata(*this);
}

void Finestra::Enabled(bool abilitata) {
  abilitata_ = abilitata;
  if (vista_) vista_->cambiata(*this);
}

Controllo* Finestra::controllo(QStringView nome) const {
  const auto it =
      std::ranges::find_if(controlli_, [&](Controllo* c) { return stesso_nome(c->nome(), nome); });
  return it == controlli_.end() ? nullptr : *it;
}

void Finestra::SetFocus(Controllo& controllo) {
  const Controllo* lasciato = std::exchange(attivo_, &controllo);
  if (vista_) vista_->fuoco(controllo);
  if (lasciato && lasciato != &controllo && lasciato->LostFocus) lasciato->LostFocus();
  if (controllo.GotFocus) controllo.GotFocus();
}

void Finestra::chiudi() {
  if (chiusa_) return;
  chiusura_chiesta_ = attese_ > 0;
  if (chiusura_chiesta_ || !Form_Unload()) return;
  chiusa_ = true;
  if (Chiusa) Chiusa();
}

void Finestra::notifica(Controllo& controllo) {
  if (vista_) vista_->cambiato(controllo);
}

}  // namespace lokera
