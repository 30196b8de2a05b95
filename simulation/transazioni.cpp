#include "simulation/transazioni.h"

namespace lokera::simulazione {

QByteArray testo_transazione(const Movimento& movimento) {
  return movimento.tessera.leftJustified(10, '.', true) + movimento.chiave.leftJustified(10, '.', true) +
         (movimento.tipo == prelievo ? "00" : "01") +
         movimento.momento.toString(QStringLiteral("ddMMyyhhmmss")).toLatin1();
}

}  // namespace lokera::simulazione
