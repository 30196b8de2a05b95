#pragma once

#include <QtGlobal>

namespace lokera {

/// Where a cabinet listens.
constexpr quint16 porta_transazioni = 10001;  ///< commands and stored transactions
constexpr quint16 porta_slave = 10002;        ///< the live session
constexpr quint16 porta_datagrammi = 3040;    ///< search, network settings, reset

}  // namespace lokera
