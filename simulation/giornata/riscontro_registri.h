#pragma once

#include "simulation/giornata/controlli.h"
#include "simulation/giornata/registri_attesi.h"

namespace lokera::simulazione {

/// What of the cabinets' records is not as the database asks, as the system has it.
struct EccezioniRegistri {
  int vecchie_posizioni = 0;  ///< records at the old position of a key that was moved
  int trattenute = 0;         ///< cards that a failed "registra" kept from a cabinet, before it was repeated
  int senza_risposta = 0;     ///< keys that a cabinet deleted and did not say so, before the same
};

/// Before what failed is repeated: a card that isn't where it should be waits for a key that somebody knows
/// of, and so does a key that a cabinet has no record of.
void conta_in_attesa(Connection& c, const SitoGiornata& sito, const RegistriAttesi& attesi,
                     EccezioniRegistri& eccezioni, Riscontro& r);

/// After it: the registries are what was registered; each cabinet holds a record of every key of its own at
/// its position, one of every card that has one of its groups, and no others but those left behind.
void riscontra_registri(Connection& c, const SitoGiornata& sito, const RegistriAttesi& attesi,
                        EccezioniRegistri& eccezioni, Riscontro& r);

}  // namespace lokera::simulazione
