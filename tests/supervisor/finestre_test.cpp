#include "aiuti/banco.h"

namespace lokera::prova {
namespace {

using namespace Qt::StringLiterals;

TEST(Finestre, MenusOpenThemOnceAndTheyCountUntilTheyAreClosed) {
  Banco b;
  b.main().Form_Load();
  MenuPrincipale& m = b.parti().menu;
  for (const auto& [voce, nome] :
       {std::pair(&m.mnuGru, u"frm_gruppi"_s), std::pair(&m.mnuGruUtenti, u"frm_gruppi_utenti"_s),
        std::pair(&m.mnuOperatori, u"frm_operatori"_s), std::pair(&m.mnuFascie, u"frm_fascie_orarie"_s),
        std::pair(&m.mnuTrad, u"frm_traduzioni"_s)}) {
    voce->Click();
    Finestra* f = b.console->elenco().trova(nome);
    ASSERT_TRUE(f) << nome.toStdString();
    EXPECT_FALSE(f->Caption().isEmpty());
    EXPECT_EQ(b.console->elenco().conta(), 2);
    voce->Click();
    EXPECT_EQ(b.console->elenco().conta(), 2) << "the same window again";
    f->chiudi();
    b.vm.esegui_per(1s);
    EXPECT_EQ(b.console->elenco().conta(), 1);
  }
}

}  // namespace
}  // namespace lokera::prova
