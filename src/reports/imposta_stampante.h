#pragma once

#include "platform/printer.h"
#include "reports/archivio_stampe.h"

namespace lokera {

/// What the settings ask of the printer, beginning with its own properties. A paper that is named by its size
/// takes only sizes above 0. `margine`: centimetres, of the left side; none leaves it.
ProprietaStampa imposta_stampante(const ProprietaStampa& attuali, const ImpostazioniStampa& impostazioni,
                                  std::optional<double> margine);

/// The other way round: paper, orientation and left margin of a page set-up.
ImpostazioniStampa con_pagina(ImpostazioniStampa impostazioni, const ProprietaStampa& pagina);

}  // namespace lokera
