#include "supervisor/finestre.h"

#include "access/frm_fascie_orarie.h"
#include "cards/frm_gruppi.h"
#include "forms/frm_traduzioni.h"
#include "supervisor/frm_operatori.h"

namespace lokera {

namespace {

using Creatore = std::unique_ptr<Finestra> (*)(const Ambiente&);

template <class F>
std::unique_ptr<Finestra> crea(const Ambiente& a) {
  return std::make_unique<F>(a);
}

template <TabellaGruppi (*tabella)()>
std::unique_ptr<Finestra> crea_gruppi(const Ambiente& a) {
  return std::make_unique<frm_gruppi>(a, tabella());
}

/// A window opens by its name once it stands here.
constexpr struct {
  const char16_t* nome;
  Creatore crea;
} finestre[] = {
    {u"frm_gruppi", crea_gruppi<gruppi_di_chiavi>}, {u"frm_gruppi_utenti", crea_gruppi<gruppi_di_utenti>},
    {u"frm_operatori", crea<frm_operatori>},        {u"frm_fascie_orarie", crea<frm_fascie_orarie>},
    {u"frm_traduzioni", crea<frm_traduzioni>},
};

}  // namespace

std::unique_ptr<Finestra> crea_finestra(const Ambiente& ambiente, const QString& nome) {
  for (const auto& f : finestre)
    if (nome == QStringView(f.nome)) return f.crea(ambiente);
  return nullptr;
}

}  // namespace lokera
