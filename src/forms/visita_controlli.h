#pragma once

#include "forms/controlli.h"

namespace lokera {

class Tendina;
class SSOleDBGrid;
class SSOleDBDropDown;

/// Who has to tell the kinds of controls apart, because each is drawn another way. A kind that it has no
/// function for is passed over.
class VisitaControlli {
 public:
  virtual ~VisitaControlli() = default;
  virtual void visita(Label&) {}
  virtual void visita(CommandButton&) {}
  virtual void visita(Menu&) {}
  virtual void visita(TextBox&) {}
  virtual void visita(MaskEdBox&) {}
  virtual void visita(CheckBox&) {}
  virtual void visita(OptionButton&) {}
  virtual void visita(Tendina&) {}
  virtual void visita(ProgressBar&) {}
  virtual void visita(Shape&) {}
  virtual void visita(NumeroPosizione&) {}
  virtual void visita(SSPanel&) {}
  virtual void visita(SSOleDBGrid&) {}
  virtual void visita(SSOleDBDropDown&) {}
};

/// The control as one of the kind C; null when it is another.
template <class C>
C* come(Controllo* controllo) {
  struct Cerca : VisitaControlli {
    using VisitaControlli::visita;
    void visita(C& c) override { trovato = &c; }
    C* trovato = nullptr;
  } cerca;
  if (controllo) controllo->accetta(cerca);
  return cerca.trovato;
}

}  // namespace lokera
