#include "supervisor/frm_operatori.h"

#include "aiuti/finestre.h"

namespace lokera::prova {
namespace {

using namespace Qt::StringLiterals;

class FrmOperatori : public BancoFinestre {
 protected:
  FrmOperatori() {
    sql(u"insert into operatori (user, pwd, su) values ('Anna', 'a1', 1)"_s);
    sql(u"insert into operatori (user, pwd, su) values ('Bruno', 'b2', 0)"_s);
    f.Form_Load();
  }
  QStringList tabella() { return righe(u"select user, pwd, su from operatori order by user"_s); }
  void scrivi_password(const QString& pwd, const QString& conferma) {
    f.txtPwd.SetFocus();
    f.txtPwd.Text = pwd;
    f.txtPwd.Change();
    f.txtConfermaPwd.SetFocus();
    f.txtConfermaPwd.Text = conferma;
  }
  QString password() const { return f.txtPwd.Text() + u'/' + f.txtConfermaPwd.Text(); }

  frm_operatori f{elenco, db.connessione_db, griglie, vm.desktop()};
};

TEST_F(FrmOperatori, TheRowIsShownBesideTheList) {
  EXPECT_EQ(f.txtUser.Text() + u' ' + password(), u"Anna a1/a1"_s);
  EXPECT_EQ(f.Check1.Value(), 1);
  f.grd.Row(1);
  EXPECT_EQ(f.txtUser.Text() + u' ' + password(), u"Bruno b2/b2"_s);
  EXPECT_EQ(f.Check1.Value(), 0);
}

TEST_F(FrmOperatori, SavesAreRefusedWithTheirMessage) {
  const QString niente = u"Non sono state apportate modifiche."_s,
                senza_nome = u"Inserire il nome dell'utente."_s;
  const struct {
    QString utente, pwd, conferma, messaggio;
  } casi[] = {{u"Anna"_s, u""_s, u"x"_s, niente},
              {u"Anna"_s, u"x"_s, u""_s, niente},
              {u""_s, u"x"_s, u"x"_s, senza_nome},
              {u" "_s, u"x"_s, u"x"_s, senza_nome},
              {u"Anna"_s, u"x"_s, u"X"_s, u"La password non corrisponde con quella di conferma."_s}};
  for (const auto& c : casi) {
    f.Command4_Click();
    f.txtUser.Text = c.utente;
    scrivi_password(c.pwd, c.conferma);
    f.Command1_Click();
    EXPECT_EQ(messaggi.testi().last(), c.messaggio);
    EXPECT_EQ(tabella(), (QStringList{u"Anna|a1|1"_s, u"Bruno|b2|0"_s}));
  }
}

TEST_F(FrmOperatori, ASavedUserStaysInTheBoxesWithoutPassword) {
  f.grd.Row(1);
  f.Command4_Click();
  scrivi_password(u"nuova"_s, u"nuova"_s);
  f.Check1.Value = 1;
  f.Command1_Click();
  EXPECT_EQ(tabella()[1], u"Bruno|nuova|1"_s);
  EXPECT_EQ(f.txtUser.Text(), u"Bruno"_s);
  EXPECT_EQ(password(), u" / "_s);
  // Both boxes match and aren't empty.
  f.Command1_Click();
  EXPECT_EQ(tabella()[1], u"Bruno| |1"_s);
  EXPECT_TRUE(messaggi.mostrati.isEmpty());
}

TEST_F(FrmOperatori, NewUsersAreAdded) {
  for (const QString& nome : testi_difficili()) {
    f.Command5_Click();
    EXPECT_EQ(f.txtUser.Text() + f.txtPwd.Text(), QString());
    EXPECT_FALSE(f.Command3.Enabled());
    f.txtUser.Text = nome;
    scrivi_password(u"é🔑'%"_s, u"é🔑'%"_s);
    f.Command1_Click();
    const bool entra = nome.size() <= 50;
    EXPECT_EQ(righe(u"select pwd from operatori where user = ?"_s, {nome}),
              entra ? QStringList{u"é🔑'%"_s} : QStringList{});
    EXPECT_EQ(messaggi.mostrati.size(), entra ? 0 : 1);
    if (entra) f.Command3_Click();
    f.Command2_Click();
    EXPECT_EQ(tabella().size(), 2) << nome.left(50).toStdString();
    EXPECT_EQ(f.grd.Rows(), 2);
  }
}

TEST_F(FrmOperatori, ThePasswordColumnIsHiddenWhateverTheLayoutSays) {
  for (const char* layout : {"update layout_griglie set visibile = 1", "delete from layout_griglie"}) {
    sql(QString::fromLatin1(layout));
    frm_operatori altra{elenco, db.connessione_db, griglie, vm.desktop()};
    altra.Form_Load();
    const SSOleDBGrid& grd = altra.grd;
    ASSERT_EQ(grd.Cols(), 5);
    for (int i = 0; i < grd.Cols(); ++i)
      EXPECT_EQ(grd.Columns(i).Visible, grd.Columns(i).campo != u"pwd") << layout;
    EXPECT_EQ(altra.txtPwd.Text(), u"a1"_s);
  }
}

TEST_F(FrmOperatori, LeavingShowsTheLastUserWithoutPasswordAndDeletingTakesIt) {
  f.Command5_Click();
  EXPECT_EQ(f.grd.Rows(), 3);
  f.Command2_Click();
  EXPECT_EQ(f.grd.Rows(), 2);
  EXPECT_EQ(f.txtUser.Text() + u' ' + password(), u"Bruno  / "_s);
  f.Command4_Click();
  EXPECT_EQ(password(), u"b2/b2"_s) << "an edit has the row in its boxes";
  f.Command2_Click();
  f.Command3_Click();
  EXPECT_EQ(tabella(), QStringList{u"Anna|a1|1"_s});
  EXPECT_EQ(f.grd.Rows(), 1);
  EXPECT_EQ(password(), u" / "_s);
}

TEST_F(FrmOperatori, GoingToAPasswordClearsTheClipboard) {
  f.Command4_Click();
  f.txtConfermaPwd.SetFocus();
  EXPECT_EQ(password(), u"a1/a1"_s);
  f.txtPwd.SetFocus();
  EXPECT_EQ(password(), u"a1/"_s);
  EXPECT_EQ(vm.desktop().appunti_svuotati, 2);
}

TEST_F(FrmOperatori, AnEditIsNotLostByAClickInTheList) {
  f.Command4_Click();
  EXPECT_TRUE(f.grd.Enabled() && !f.Command5.Enabled() && f.Command1.Enabled());
  scrivi_password(u"x"_s, u"y"_s);
  EXPECT_FALSE(f.grd.Enabled());
  f.Command1_Click();
  EXPECT_FALSE(f.grd.Enabled()) << "still not stored";
  f.Command2_Click();
  EXPECT_TRUE(f.grd.Enabled() && f.Command5.Enabled() && !f.Command1.Enabled());
}

}  // namespace
}  // namespace lokera::prova
