#include "commissioning/strada.h"

#include "aiuti/banco.h"

namespace lokera::prova {
namespace {

TEST(Strada, DallaScatolaAlLavoroInTempoVirtuale) {
  Banco b;
  Strada(*b.console, b.vm.rete(), b.vm.messaggi(), u"PC-CENTRALE"_s).percorri();
}

}  // namespace
}  // namespace lokera::prova
