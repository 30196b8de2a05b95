#include "app/schermo_console.h"

namespace lokera {

SchermoConsole::SchermoConsole(Console& console, const QRect& disponibile)
    : console_(console), schermo_(console.traduttore(), disponibile) {
  console.griglie().larghezza_schermo = schermo_.disponibile().width();
  console.finestre().collega = [this](Finestra& f) { schermo_.apri(f); };
  console.finestre().in_primo_piano = [this](Finestra& f) { schermo_.in_primo_piano(f); };
  QWidget* principale = schermo_.disegna(console.principale());
  console.principale().Show = [this, principale] {
    if (PrimaDiMostrare) PrimaDiMostrare();
    principale->show();
  };
}

SchermoConsole::~SchermoConsole() {
  console_.finestre().collega = nullptr;
  console_.finestre().in_primo_piano = nullptr;
  console_.principale().Show = nullptr;
}

}  // namespace lokera
