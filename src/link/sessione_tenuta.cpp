#include "link/sessione_tenuta.h"

namespace lokera {

SessioneTenuta::SessioneTenuta(SessioneDownload& sessione, Fermi fermi)
    : sessione_(sessione), fermi_(fermi), conversazione_(sessione.prendi()) {
  sessione_.trattieni(+1, fermi_ == Fermi::tick);
}

SessioneTenuta::~SessioneTenuta() {
  const bool sua = mia();
  sessione_.trattieni(-1, fermi_ == Fermi::tick);
  if (sua || !sessione_.tenuta()) sessione_.chiudi();
}

}  // namespace lokera
