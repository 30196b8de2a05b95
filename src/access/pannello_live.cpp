#include "access/pannello_live.h"

namespace lokera {

using namespace Qt::StringLiterals;

PannelloLive::PannelloLive(Finestra& f, TimerFactory& timer, Traduttore& traduttore)
    : ShapeP(f, u"ShapeP"_s),
      ShapeSX(f, u"ShapeSX"_s),
      ShapeDX(f, u"ShapeDX"_s),
      lblP(f, u"lblP"_s),
      lblPG(f, u"lblPG"_s),
      lblIntestazione(f, u"lblIntestazione"_s, u"intestazione"_s),
      lblSX(f, u"lblSX"_s, u"Tessera chiave"_s),
      lblSxG(f, u"lblSxG"_s, u"gruppo"_s),
      lblDX(f, u"lblDX"_s, u"Tessera chiave"_s),
      lblDxG(f, u"lblDxG"_s, u"gruppo"_s),
      lampade_esito_5(f, u"lampade_esito_5"_s),
      lampade_esito_6(f, u"lampade_esito_6"_s),
      lampade_esito_7(f, u"lampade_esito_7"_s),
      lampade_esito_8(f, u"lampade_esito_8"_s),
      TimerSX(timer.crea_timer()),
      TimerDX(timer.crea_timer()),
      TimerSlot(timer.crea_timer()),
      traduttore_(traduttore) {
  TimerSX->Interval(3000);
  TimerDX->Interval(3000);
  TimerSlot->Interval(5000);
  TimerSX->Evento = [this] { TimerSX_Timer(); };
  TimerDX->Evento = [this] { TimerDX_Timer(); };
  TimerSlot->Evento = [this] { TimerSlot_Timer(); };
}

std::array<Shape*, 2> PannelloLive::lampade(Lato lato) {
  if (lato == Lato::sinistro) return {&lampade_esito_5, &lampade_esito_7};
  return {&lampade_esito_6, &lampade_esito_8};
}

void PannelloLive::azzera_operatore() {
  lblP.Caption = QString();
  spegni_lampade();
  lblIntestazione.Caption = intestazione_a_riposo();
  lblPG.Caption = QString();
  ferma_timer();
}

void PannelloLive::ferma_timer() {
  for (const auto& timer : {&TimerSlot, &TimerDX, &TimerSX}) (*timer)->Enabled(false);
}

void PannelloLive::spegni_lampade() {
  for (Shape* s : {&ShapeP, &ShapeSX, &ShapeDX}) s->FillColor = grigio;
  mostra_esito(Lato::sinistro, grigio, grigio);
  mostra_esito(Lato::destro, grigio, grigio);
}

void PannelloLive::mostra_lato(Lato lato, Colore colore, const QString& codice, const QString& gruppo) {
  const bool sinistro = lato == Lato::sinistro;
  (sinistro ? ShapeSX : ShapeDX).FillColor = colore;
  (sinistro ? lblSX : lblDX).Caption = codice;
  (sinistro ? lblSxG : lblDxG).Caption = gruppo;
}

void PannelloLive::avvia_timer(Lato lato) {
  (lato == Lato::sinistro ? TimerSX : TimerDX)->Enabled(true);
}

void PannelloLive::mostra_esito(Lato lato, Colore prima, Colore seconda) {
  const auto [a, b] = lampade(lato);
  a->FillColor = prima;
  b->FillColor = seconda;
}

void PannelloLive::testi_a_riposo() {
  const QString chiave = traduttore_.traduci(u"Tessera chiave"_s);
  const QString gruppo = traduttore_.traduci(u"gruppo"_s);
  lblSX.Caption = chiave;
  lblDX.Caption = chiave;
  lblSxG.Caption = gruppo;
  lblDxG.Caption = gruppo;
}

void PannelloLive::lato_a_riposo(Lato lato, Timer& timer) {
  timer.Enabled(false);
  (lato == Lato::sinistro ? ShapeSX : ShapeDX).FillColor = grigio;
  mostra_esito(lato, grigio, grigio);
  testi_a_riposo();
  if (!modo_slave) return;
  ShapeP.FillColor = grigio;
  lblP.Caption = QString();
  lblIntestazione.Caption = intestazione_a_riposo();
}

void PannelloLive::TimerSX_Timer() {
  lato_a_riposo(Lato::sinistro, *TimerSX);
}

void PannelloLive::TimerDX_Timer() {
  lato_a_riposo(Lato::destro, *TimerDX);
}

void PannelloLive::TimerSlot_Timer() {
  for (Shape* s : {&ShapeP, &ShapeSX, &ShapeDX}) s->FillColor = grigio;
  lblP.Caption = QString();
  testi_a_riposo();
  const Colore spenta = ShapeP.FillColor;
  mostra_esito(Lato::sinistro, spenta, spenta);
  mostra_esito(Lato::destro, spenta, spenta);
  lblIntestazione.Caption = intestazione_a_riposo();
  TimerSlot->Enabled(false);
  TimerSlot->Interval(3000);
}

}  // namespace lokera
