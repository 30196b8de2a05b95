#include "supervisor/accesso.h"

#include "aiuti/banco.h"

namespace lokera::prova {
namespace {

using namespace Qt::StringLiterals;

struct BancoAccesso : Banco {
  BancoAccesso() {
    sql(u"insert into operatori (user, pwd, su, pc) values ('Anna', 'Segreta', 1, ' ')"_s);
    for (const auto& [utente, password] : std::initializer_list<std::pair<QString, QVariant>>{
             {u"Nulla"_s, {}}, {u"Vuota"_s, u""_s}, {u"Blank"_s, u" "_s}, {u" "_s, u"x"_s}})
      sql(u"insert into operatori (user, pwd) values (?, ?)"_s, {utente, password});
    main().Form_Load();
  }
  Accesso& a = parti().accesso;

  void entra(const QString& utente, const QString& password) {
    a.mnuAbile_Click();
    a.txtUtente.Text = utente;
    a.txtPassword.Text = password;
    a.cmdLogin_Click();
  }
  bool menu_aperti() {
    const MenuPrincipale& m = parti().menu;
    EXPECT_EQ(m.mnuTab.Enabled(), m.mnuMov.Enabled());
    EXPECT_EQ(m.mnuTab.Enabled(), m.mnuUtilities.Enabled());
    return m.mnuTab.Enabled();
  }
};

TEST(Accesso, OnlyTheRightPairOpensTheMenus) {
  const struct {
    QString utente, password, messaggio, resta_utente;
    bool entra;
  } casi[] = {{u"Anna"_s, u"Segreta"_s, u""_s, u"Anna"_s, true},
              {u"anna"_s, u"Segreta"_s, u""_s, u"anna"_s, true},
              {u"Anna"_s, u"segreta"_s, u"password errata"_s, u"Anna"_s, false},
              {u"Anna"_s, u""_s, u"password errata"_s, u"Anna"_s, false},
              {u"nessuno"_s, u"x"_s, u"utente non registrato"_s, u""_s, false},
              {u"' or ''='"_s, u"' or ''='"_s, u"utente non registrato"_s, u""_s, false},
              {u"Nulla"_s, u""_s, u"password errata"_s, u"Nulla"_s, false},
              {u"Vuota"_s, u""_s, u"password errata"_s, u"Vuota"_s, false},
              {u"Blank"_s, u" "_s, u"password errata"_s, u"Blank"_s, false},
              {u" "_s, u"x"_s, u"utente non registrato"_s, u""_s, false},
              {u"%"_s, u"Segreta"_s, u"utente non registrato"_s, u""_s, false},
              {u"ZandorTool"_s, u"ZandorTool"_s, u""_s, u"ZandorTool"_s, true},
              {u"ZandorTool"_s, u"zandortool"_s, u"utente non registrato"_s, u""_s, false}};
  for (const auto& c : casi) {
    BancoAccesso b;
    EXPECT_FALSE(b.menu_aperti());
    b.entra(c.utente, c.password);
    EXPECT_EQ(b.a.accesso_abilitato, c.entra) << c.utente.toStdString();
    EXPECT_EQ(b.menu_aperti(), c.entra);
    EXPECT_EQ(b.a.pctLogin.Visible(), !c.entra);
    EXPECT_EQ(b.a.mnuAbile.Caption(), c.entra ? u"disabilita"_s : u"   abilita"_s);
    EXPECT_EQ(b.vm.messaggi().testi().join(u'/'), c.messaggio);
    EXPECT_EQ(b.a.txtUtente.Text(), c.resta_utente);
    EXPECT_EQ(b.a.txtPassword.Text(), QString());
    if (!c.entra) {
      Controllo& attesa = c.resta_utente.isEmpty() ? b.a.txtUtente : b.a.txtPassword;
      EXPECT_EQ(b.main().ActiveControl(), &attesa);
    }
  }
}

TEST(Accesso, TheLastUserOfThisComputerIsProposed) {
  BancoAccesso b;
  b.entra(u"Anna"_s, u"Segreta"_s);
  EXPECT_EQ(b.uno(u"select pc from operatori where user = 'Anna'"_s).toString(), u"PC-CENTRALE"_s);
  EXPECT_EQ(b.uno(u"select ultima_entrata from operatori where user = 'Anna'"_s).toDateTime().date(),
            QDate(2008, 11, 30));
  b.sql(
      u"insert into operatori (user, pwd, su, ultima_entrata, pc) values"
      u" ('Bruno', 'b', 0, #11/29/2008#, 'PC-CENTRALE')"_s);
  b.a.mnuAbile_Click();
  EXPECT_FALSE(b.menu_aperti());
  EXPECT_EQ(b.a.mnuAbile.Caption(), u"   abilita  "_s);
  b.a.txtUtente.Text = QString();
  b.a.mnuAbile_Click();
  EXPECT_EQ(b.a.txtUtente.Text(), u"Anna"_s);
  EXPECT_EQ(b.main().ActiveControl(), &b.a.txtPassword);
}

TEST(Accesso, TheServiceUserLeavesNoTraceAndIsNeverProposed) {
  BancoAccesso b;
  b.entra(u"ZandorTool"_s, u"ZandorTool"_s);
  EXPECT_EQ(b.conta(u"operatori"_s, u"pc = 'PC-CENTRALE'"_s), 0);
  b.a.mnuAbile_Click();
  b.a.mnuAbile_Click();
  EXPECT_EQ(b.a.txtUtente.Text(), QString());
  EXPECT_EQ(b.main().ActiveControl(), &b.a.txtUtente);
  b.a.Command6_Click();
  EXPECT_FALSE(b.a.pctLogin.Visible());
  EXPECT_FALSE(b.menu_aperti());
}

}  // namespace
}  // namespace lokera::prova
