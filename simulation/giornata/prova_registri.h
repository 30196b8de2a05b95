#pragma once

#include "simulation/giornata/riscontro_registri.h"
#include "simulation/giornata/scrivania.h"

namespace lokera::simulazione {

/// The proof of the two registries: the desk, and what must agree when the day has come to rest.
class ProvaRegistri {
 public:
  /// `file` is a connection that sees what the console has committed.
  ProvaRegistri(const ImpostazioniGiornata& impostazioni, SitoGiornata& sito, VirtualMachine& vm,
                EventLoop& ciclo, Console& console, Connection& file)
      : scrivania(impostazioni, sito, vm, ciclo, console), sito_(sito), file_(file) {}

  /// Now that nothing goes wrong any more, what failed at a cabinet is done once more by the windows. What
  /// waits without anything having failed is a difference. Passes time.
  QStringList ripeti();
  /// After the rounds that follow.
  void riscontra(Riscontro& r);
  void racconta(EsitoGiornata& esito) const;

  Scrivania scrivania;

 private:
  SitoGiornata& sito_;
  Connection& file_;
  EccezioniRegistri eccezioni_;
};

}  // namespace lokera::simulazione
