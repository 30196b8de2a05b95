#include "forms/frm_traduzioni.h"

#include "aiuti/finestre.h"

namespace lokera::prova {
namespace {

using namespace Qt::StringLiterals;

class FrmTraduzioni : public BancoFinestre {
 protected:
  FrmTraduzioni() {
    sql(u"delete from traduzioni"_s);
    sql(u"insert into traduzioni (italiano, inglese, tedesco) values ('chiave', 'key', 'Schluessel')"_s);
    sql(u"insert into traduzioni (italiano, inglese, tedesco) values ('lokera', 'cabinet', ' ')"_s);
  }
  QStringList tabella() {
    return righe(u"select italiano, inglese, tedesco from traduzioni order by italiano"_s);
  }

  frm_traduzioni finestra{ambiente};
  SSOleDBGrid& grd = finestra.grd;
};

TEST_F(FrmTraduzioni, ARowIsStoredWhenItIsLeft) {
  finestra.Form_Load();
  grd.utente_modifica(0, 1, u"Schlüssel"_s);
  EXPECT_EQ(tabella()[0], u"chiave|key|Schluessel"_s);
  grd.Row(1);
  EXPECT_EQ(tabella()[0], u"chiave|key|Schlüssel"_s);
  digita_riga(grd, {u"porta"_s, u"Tür"_s});
  EXPECT_EQ(tabella(), (QStringList{u"chiave|key|Schlüssel"_s, u"lokera|cabinet| "_s, u"porta| |Tür"_s}));
}

TEST_F(FrmTraduzioni, AnotherItalianTextIsAnotherEntry) {
  finestra.Form_Load();
  grd.utente_modifica(0, 0, u"chiave nuova"_s);
  grd.Update();
  EXPECT_EQ(tabella()[0], u"chiave|key|Schluessel"_s);
  EXPECT_EQ(tabella()[1], u"chiave nuova| |Schluessel"_s);
}

TEST_F(FrmTraduzioni, TheRowInEditIsStoredWhenTheWindowCloses) {
  finestra.Form_Load();
  grd.utente_modifica(1, 1, u"Schrank"_s);
  finestra.chiudi();
  EXPECT_EQ(tabella()[1], u"lokera|cabinet|Schrank"_s);
  EXPECT_TRUE(finestra.chiusa());
}

TEST_F(FrmTraduzioni, ARefusedRowIsToldAndNothingStays) {
  finestra.Form_Load();
  sql(u"create trigger guardia before update on traduzioni begin select raise(abort, 'no: chiusa'); end"_s);
  grd.utente_modifica(0, 1, u"x"_s);
  grd.Update();
  ASSERT_EQ(messaggi.mostrati.size(), 1);
  EXPECT_TRUE(messaggi.testi()[0].startsWith(u"errore in registrazione voce\r"))
      << messaggi.testi()[0].toStdString();
  EXPECT_EQ(tabella()[0], u"chiave|key|Schluessel"_s);
}

TEST_F(FrmTraduzioni, DeletingAsksFirst) {
  finestra.Form_Load();
  EXPECT_FALSE(grd.utente_elimina(0));
  EXPECT_EQ(tabella().size(), 2);
  messaggi.risposte = {true};
  EXPECT_TRUE(grd.utente_elimina(0));
  EXPECT_EQ(tabella(), QStringList{u"lokera|cabinet| "_s});
  EXPECT_EQ(messaggi.mostrati[1], (VirtualMessageBox::Messaggio{u"Vuoi eliminare la voce?"_s, {}, true}));
}

TEST_F(FrmTraduzioni, ADeletedEntryIsForgottenAtOnce) {
  db.lingua_interfaccia = 1;
  finestra.Form_Load();
  EXPECT_EQ(traduttore.traduci(u" chiave"_s), u" key"_s);
  messaggi.risposte = {true};
  for (int riga = 0; riga < grd.Rows(); ++riga)
    if (grd.cella(riga, u"italiano") == u"chiave") grd.utente_elimina(riga);
  EXPECT_EQ(traduttore.traduci(u" chiave"_s), u" chiave"_s);
}

TEST_F(FrmTraduzioni, WhatTheCellShowsIsStoredFoundAndDeleted) {
  finestra.Form_Load();
  for (const QString& testo : testi_difficili()) {
    digita_riga(grd, {testo, u"x"_s});
    grd.Update();
    EXPECT_EQ(righe(u"select tedesco from traduzioni where italiano = ?"_s, {testo.left(255)}),
              QStringList{u"x"_s});
    messaggi.risposte = {true};
    EXPECT_TRUE(grd.utente_elimina(grd.Rows() - 1));
  }
  EXPECT_EQ(tabella().size(), 2);
}

TEST_F(FrmTraduzioni, TheTwoLanguagesShareTheList) {
  grd.Width = 12000;
  finestra.Form_Load();
  EXPECT_EQ(grd.Columns(0).Width, 5000);
  EXPECT_EQ(grd.Columns(1).Width, 5000);
  EXPECT_FALSE(grd.Columns(grd.colonna(u"inglese")).Visible);
}

}  // namespace
}  // namespace lokera::prova
