#pragma once

#include <array>
#include <memory>

#include "forms/controlli.h"
#include "forms/traduttore.h"
#include "platform/letterali.h"
#include "platform/timer.h"

namespace lokera {

/// The live panel of the main window: who stands at the managed cabinet and what happens on its two sides.
/// The texts are state: a key request reads the operator back from `lblP` and `lblPG`.
class PannelloLive {
 public:
  PannelloLive(Finestra& finestra, TimerFactory& timer, Traduttore& traduttore);

  enum class Lato { sinistro, destro };

  /// All lamps grey, no operator, no timer running: how a new request finds the panel.
  void azzera_operatore();
  void spegni_lampade();
  void mostra_lato(Lato lato, Colore colore, const QString& codice, const QString& gruppo);
  void avvia_timer(Lato lato);
  /// What an earlier request or end has started must not clear what the panel holds from now on.
  void ferma_timer();
  /// The two result lamps of a side: 5 and 7 on the left, 6 and 8 on the right.
  void mostra_esito(Lato lato, Colore prima, Colore seconda);
  QString intestazione_a_riposo() { return traduttore_.traduci(u"intestazione"_s); }

  /// Both sides' texts as they stand when nothing happens, in the language of the interface.
  void testi_a_riposo();

  void TimerSX_Timer();
  void TimerDX_Timer();
  void TimerSlot_Timer();

  bool modo_slave = false;  ///< a side's timer also puts the operator back to rest

  Shape ShapeP, ShapeSX, ShapeDX;
  Label lblP, lblPG, lblIntestazione;
  Label lblSX, lblSxG, lblDX, lblDxG;
  Shape lampade_esito_5, lampade_esito_6, lampade_esito_7, lampade_esito_8;

  std::unique_ptr<Timer> TimerSX, TimerDX, TimerSlot;

 private:
  void lato_a_riposo(Lato lato, Timer& timer);
  std::array<Shape*, 2> lampade(Lato lato);

  Traduttore& traduttore_;
};

}  // namespace lokera
