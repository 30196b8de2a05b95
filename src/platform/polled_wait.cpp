#include "platform/polled_wait.h"

#include <algorithm>

namespace lokera {

bool PolledWait::attendi(int secondi, const std::function<bool()>& pronto) {
  const auto frazione = std::chrono::milliseconds(orologio_.adesso().time().msec());
  const Monotonic scadenza = orologio_.monotono() + std::chrono::seconds(secondi + 1) - frazione;
  while (!pronto()) {
    if (orologio_.monotono() >= scadenza) return false;
    ciclo_.esegui_eventi(scadenza);
  }
  return true;
}

void PolledWait::attendi_oltre(int secondi) {
  attendi(secondi, [] { return false; });
}

bool PolledWait::ritenta(Monotonic ogni, Monotonic limite, const std::function<bool()>& tentativo) {
  const Monotonic fine = orologio_.monotono() + limite;
  while (!tentativo()) {
    if (orologio_.monotono() >= fine) return false;
    const Monotonic prossimo = std::min(orologio_.monotono() + ogni, fine);
    while (orologio_.monotono() < prossimo) ciclo_.esegui_eventi(prossimo);
  }
  return true;
}

void PolledWait::cedi() {
  ciclo_.esegui_eventi(orologio_.monotono());
}

}  // namespace lokera
