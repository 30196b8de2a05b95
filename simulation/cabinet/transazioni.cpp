#include "simulation/cabinet/transazioni.h"

namespace lokera::simulazione {

using namespace Qt::StringLiterals;

QByteArray testo_transazione(const MovimentoChiave& movimento) {
  return movimento.tessera.leftJustified(10, '.', true) + movimento.chiave.leftJustified(10, '.', true) +
         (movimento.tipo == prelievo ? "00" : "01") +
         movimento.momento.toString(u"ddMMyyhhmmss"_s).toLatin1();
}

}  // namespace lokera::simulazione
