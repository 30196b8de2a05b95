#include "simulation/macchina/virtual_machine.h"

namespace lokera::simulazione {

using namespace Qt::StringLiterals;

VirtualComputer::VirtualComputer(VirtualClock& orologio, VirtualEventLoop& ciclo, VirtualNetwork& rete,
                                 const QString& nome)
    : orologio(orologio), ciclo(ciclo), timer(ciclo), socket(rete, nome), seriali(ciclo) {}

Machine VirtualComputer::macchina() {
  return {orologio, ciclo,     timer, socket,    seriali, messaggi,  domande,
          file,     stampante, fogli, puntatore, desktop, programma, documenti.path()};
}

VirtualMachine::VirtualMachine(quint64 seme, const QDateTime& inizio)
    : orologio_(inizio), caso_(seme), ciclo_(orologio_), rete_(ciclo_, caso_) {
  crea_computer(u"PC-CENTRALE"_s);
}

VirtualComputer& VirtualMachine::crea_computer(const QString& nome) {
  return *computer_.emplace_back(std::make_unique<VirtualComputer>(orologio_, ciclo_, rete_, nome));
}

void VirtualMachine::esegui_fino(Monotonic fine) {
  while (orologio_.monotono() < fine) ciclo_.esegui_eventi(fine);
}

bool VirtualMachine::esegui_finche(const std::function<bool()>& pronto, Monotonic limite) {
  const Monotonic fine = orologio_.monotono() + limite;
  while (!pronto()) {
    if (orologio_.monotono() >= fine) return false;
    ciclo_.esegui_eventi(fine);
  }
  return true;
}

}  // namespace lokera::simulazione
