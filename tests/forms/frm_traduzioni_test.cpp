#include "forms/frm_traduzioni.h"

#include "aiuti/finestre.h"

namespace lokera::prova {
namespace {

class FrmTraduzioni : public BancoFinestre {
 protected:
  FrmTraduzioni() {
    sql(u"delete from traduzioni"_s);
    sql(u"insert into traduzioni (italiano, inglese, tedesco) values ('chiave', 'key', 'Schluessel'), "
        "('lokera', 'cabinet', ' ')"_s);
    grd.Width = 12000;
    finestra.Form_Load();
  }
  QStringList tabella() {
    return righe(u"select italiano, inglese, tedesco from traduzioni order by italiano"_s);
  }

  frm_traduzioni finestra{elenco, db, griglie, vm.orologio()};
  SSOleDBGrid& grd = finestra.grd;
};

TEST_F(FrmTraduzioni, ARowIsStoredWhenItIsLeft) {
  grd.utente_modifica(0, 1, u"Schlüssel"_s);
  grd.Row(1);
  EXPECT_EQ(tabella()[0], u"chiave|key|Schlüssel"_s);
  grd.utente_modifica(0, 0, u"chiave nuova"_s);  // another Italian text is another entry
  digita_riga(grd, {u"porta"_s, u"Tür"_s});
  grd.utente_modifica(1, 1, u"Schrank"_s);
  finestra.chiudi();
  EXPECT_TRUE(finestra.chiusa());
  EXPECT_EQ(tabella(), (QStringList{u"chiave|key|Schlüssel"_s, u"chiave nuova| |Schlüssel"_s,
                                    u"lokera|cabinet|Schrank"_s, u"porta| |Tür"_s}));
}

TEST_F(FrmTraduzioni, ARefusedRowIsToldAndNothingStays) {
  sql(u"create trigger guardia before update on traduzioni begin select raise(abort, 'no: chiusa'); end"_s);
  grd.utente_modifica(0, 1, u"x"_s);
  grd.Update();
  ASSERT_EQ(messaggi.mostrati.size(), 1);
  EXPECT_EQ(tabella()[0], u"chiave|key|Schluessel"_s);
}

TEST_F(FrmTraduzioni, DeletingAsksFirstAndTheEntryIsForgottenAtOnce) {
  db.lingua_interfaccia = 1;
  EXPECT_EQ(traduttore.traduci(u" chiave"_s), u" key"_s);
  db.lingua_interfaccia = 0;
  EXPECT_FALSE(grd.utente_elimina(0));
  EXPECT_EQ(tabella().size(), 2);
  messaggi.risposte = {true};
  EXPECT_TRUE(grd.utente_elimina(0));
  EXPECT_EQ(tabella(), QStringList{u"lokera|cabinet| "_s});
  EXPECT_EQ(messaggi.mostrati[1], domanda(u"Vuoi eliminare la voce?"_s));
  db.lingua_interfaccia = 1;
  EXPECT_EQ(traduttore.traduci(u" chiave"_s), u" chiave"_s);
}

}  // namespace
}  // namespace lokera::prova
