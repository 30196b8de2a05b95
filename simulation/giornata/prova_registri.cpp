#include "simulation/giornata/prova_registri.h"

namespace lokera::simulazione {

QStringList ProvaRegistri::ripeti() {
  Riscontro r;
  conta_in_attesa(file_, sito_, scrivania.attesi(), eccezioni_, r);
  scrivania.ripeti();
  return r.differenze;
}

void ProvaRegistri::riscontra(Riscontro& r) {
  riscontra_registro(file_, {}, scrivania.attesi().eliminate, r);
  riscontra_registri(file_, sito_, scrivania.attesi(), eccezioni_, r);
}

void ProvaRegistri::racconta(EsitoGiornata& esito) const {
  esito.mosse = scrivania.mosse();
  esito.eliminate = static_cast<int>(scrivania.attesi().eliminate.size());
  esito.vecchie_posizioni = eccezioni_.vecchie_posizioni;
  esito.trattenute = eccezioni_.trattenute;
  esito.senza_risposta = eccezioni_.senza_risposta;
}

}  // namespace lokera::simulazione
