#pragma once

#include "simulation/cabinet/stato_cabinet.h"

namespace lokera::simulazione {

enum class Porta { comandi, udp };

/// The cabinet's answer to one frame, carriage returns included on both; empty when it keeps silent, which it
/// does on what is no frame at all. A reset is not carried out here: `riavvio` says that one was asked for.
QByteArray rispondi(StatoCabinet& stato, SessioneCabinet& sessione, Porta porta, QByteArrayView frame,
                    bool& riavvio);

}  // namespace lokera::simulazione
