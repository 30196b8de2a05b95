#include "forms/didascalie.h"

namespace lokera {

Didascalie::Didascalie(Finestra& finestra, std::span<const Didascalia> tabella) {
  for (const Didascalia& d : tabella)
    etichette_.push_back(std::make_unique<Label>(finestra, d.nome.toString(), d.testo.toString()));
}

}  // namespace lokera
