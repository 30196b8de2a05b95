#pragma once

#include <QString>

#include <functional>

namespace lokera::bench {

/// A simulated cabinet at `indirizzo` (fifteen characters), its store filled with `transazioni` movements of
/// the first cards and keys of the site, and beside it at `porta_eco` a bare socket that sends everything
/// back. Never returns. For a process of its own.
void vivi_lokera(const QString& indirizzo, int transazioni, const std::function<void()>& pronto);

constexpr quint16 porta_eco = 10019;

}  // namespace lokera::bench
