#pragma once

#include <memory>

#include "forms/ambiente.h"

namespace lokera {

/// The window of that name, not yet loaded; null for a name that is none.
std::unique_ptr<Finestra> crea_finestra(const Ambiente& ambiente, const QString& nome);

}  // namespace lokera
