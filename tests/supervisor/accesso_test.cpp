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
    EXPECT_TRUE(m.mnuTab.Enabled() == m.mnuMov.Enabled() && m.mnuTab.Enabled() == m.mnuUtilities.Enabled());
    return m.mnuTab.Enabled();
  }
};

TEST(Accesso, OnlyTheRightPairOpensTheMenus) {
  const QString errata = u"password errata"_s, ignoto = u"utente non registrato"_s;
  const struct {
    QString utente, password, messaggio;
  } casi[] = {{u"Anna"_s, u"Segreta"_s, {}},
              {u"anna"_s, u"Segreta"_s, {}},
              {u"ZandorTool"_s, u"ZandorTool"_s, {}},
              {u"Anna"_s, u"segreta"_s, errata},
              {u"Anna"_s, {}, errata},
              {u"Nulla"_s, {}, errata},
              {u"Vuota"_s, {}, errata},
              {u"Blank"_s, u" "_s, errata},
              {u"nessuno"_s, u"x"_s, ignoto},
              {u"' or ''='"_s, u"' or ''='"_s, ignoto},
              {u" "_s, u"x"_s, ignoto},
              {u"%"_s, u"Segreta"_s, ignoto},
              {u"ZandorTool"_s, u"zandortool"_s, ignoto}};
  for (const auto& c : casi) {
    SCOPED_TRACE((c.utente + u'/' + c.password).toStdString());
    BancoAccesso b;
    EXPECT_FALSE(b.menu_aperti());
    b.entra(c.utente, c.password);
    const bool entra = c.messaggio.isEmpty();
    EXPECT_EQ(b.a.accesso_abilitato, entra);
    EXPECT_EQ(b.menu_aperti(), entra);
    EXPECT_EQ(b.a.pctLogin.Visible(), !entra);
    EXPECT_EQ(b.a.mnuAbile.Caption(), entra ? u"disabilita"_s : u"   abilita"_s);
    EXPECT_EQ(b.vm.messaggi().testi().join(u'/'), c.messaggio);
    EXPECT_EQ(b.a.txtUtente.Text(), c.messaggio == ignoto ? QString() : c.utente);
    EXPECT_EQ(b.a.txtPassword.Text(), QString());
    Controllo& attesa = c.messaggio == ignoto ? b.a.txtUtente : b.a.txtPassword;
    EXPECT_TRUE(entra || b.main().ActiveControl() == &attesa);
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
  EXPECT_FALSE(b.a.pctLogin.Visible() || b.menu_aperti());
}

}  // namespace
}  // namespace lokera::prova
