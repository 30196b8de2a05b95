#include "cards/frm_gruppi.h"

#include "aiuti/finestre.h"

namespace lokera::prova {
namespace {

using namespace Qt::StringLiterals;

struct Caso {
  TabellaGruppi (*tabella)();
  const char16_t* nome;
};

class FrmGruppi : public BancoFinestre, public ::testing::WithParamInterface<Caso> {
 protected:
  FrmGruppi() {
    sql(u"insert into %1 (codice, descrizione) values (1, 'Direzione')"_s.arg(nome()));
    sql(u"insert into %1 (codice, descrizione) values (2, 'Portineria')"_s.arg(nome()));
  }
  QString nome() const { return QString::fromUtf16(GetParam().nome); }
  QStringList tabella() { return righe(u"select codice, descrizione from %1 order by codice"_s.arg(nome())); }

  frm_gruppi finestra{elenco, db.connessione_db, griglie, GetParam().tabella()};
  SSOleDBGrid& grd = finestra.grd;
};

INSTANTIATE_TEST_SUITE_P(, FrmGruppi,
                         ::testing::Values(Caso{gruppi_di_chiavi, u"gruppi"},
                                           Caso{gruppi_di_utenti, u"gruppi_utente"}),
                         [](const auto& info) { return QString::fromUtf16(info.param.nome).toStdString(); });

TEST_P(FrmGruppi, TheKeyboardAloneAddsChangesAndRemoves) {
  finestra.Form_Load();
  grd.utente_elimina(1);
  digita(grd, {u"10"_s, u"Direzione generale"_s, u"3"_s, u"Officina"_s});
  EXPECT_EQ(tabella(), (QStringList{u"1|Direzione"_s, u"2|Portineria"_s})) << "nothing before the button";
  finestra.Command5_Click();
  EXPECT_EQ(tabella(), (QStringList{u"3|Officina"_s, u"10|Direzione generale"_s}));
  EXPECT_EQ(messaggi.testi(), QStringList{u"Registrazione eseguita!"_s});
  EXPECT_EQ(grd.Row(), 0);
}

TEST_P(FrmGruppi, AListThatCouldNotBeReadCanNotReplaceTheTable) {
  sql(u"drop table %1"_s.arg(nome()));
  finestra.Form_Load();
  EXPECT_EQ(messaggi.mostrati.size(), 1);
  EXPECT_FALSE(finestra.Command5.Enabled());
}

}  // namespace
}  // namespace lokera::prova
