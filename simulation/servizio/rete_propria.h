#pragma once

#include <QString>

namespace lokera::simulazione {

/// The first interface that is up and could lead to another computer; empty in a network as
/// scripts/rete_propria makes it.
QString via_verso_altri();

}  // namespace lokera::simulazione
