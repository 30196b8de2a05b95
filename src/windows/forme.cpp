#include "windows/forme.h"

#include "ui_frmPrint.h"
#include "ui_frm_fascie_orarie.h"
#include "ui_frm_gruppi.h"
#include "ui_frm_memoria_sd.h"
#include "ui_frm_movimenti.h"
#include "ui_frm_operatori.h"
#include "ui_frm_param_lokere.h"
#include "ui_frm_sitKey.h"
#include "ui_frm_sit_chiavi.h"
#include "ui_frm_tessere.h"
#include "ui_frm_tessere_operatori.h"
#include "ui_frm_traduzioni.h"
#include "windows/forma_principale.h"

namespace lokera {

namespace {

template <class F>
std::unique_ptr<QWidget> nuova() {
  return std::make_unique<F>();
}

struct Riga {
  const char16_t* finestra;
  std::unique_ptr<QWidget> (*crea)();
};

constexpr Riga forme[] = {
    {u"frm_Main", nuova<FormaPrincipale>},
    {u"frm_gruppi", nuova<Forma<Ui::frm_gruppi>>},
    {u"frm_gruppi_utenti", nuova<Forma<Ui::frm_gruppi>>},
    {u"frm_memoria_sd", nuova<Forma<Ui::frm_memoria_sd>>},
    {u"frm_operatori", nuova<Forma<Ui::frm_operatori>>},
    {u"frm_fascie_orarie", nuova<Forma<Ui::frm_fascie_orarie>>},
    {u"frm_param_lokere", nuova<Forma<Ui::frm_param_lokere>>},
    {u"frm_tessere", nuova<Forma<Ui::frm_tessere>>},
    {u"frm_tessere_operatori", nuova<Forma<Ui::frm_tessere_operatori>>},
    {u"frm_movimenti", nuova<Forma<Ui::frm_movimenti>>},
    {u"frm_sitKey", nuova<Forma<Ui::frm_sitKey>>},
    {u"frm_sit_chiavi", nuova<Forma<Ui::frm_sit_chiavi>>},
    {u"frmPrint", nuova<Forma<Ui::frmPrint>>},
    {u"frm_traduzioni", nuova<Forma<Ui::frm_traduzioni>>},
};

}  // namespace

std::unique_ptr<QWidget> crea_forma(const QString& nome) {
  for (const Riga& riga : forme)
    if (nome == QStringView(riga.finestra)) return riga.crea();
  return nullptr;
}

}  // namespace lokera
