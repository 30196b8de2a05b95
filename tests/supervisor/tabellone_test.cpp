#include "aiuti/banco.h"

namespace lokera::prova {
namespace {

using namespace Qt::StringLiterals;

class TabelloneTest : public ::testing::Test {
 protected:
  TabelloneTest() {
    for (int p = 0; p < Tabellone::pannelli; ++p) t.pnlK(p).Top = 100 * p;
    t.prepara();
    b.main().corrente.lblID.Caption = u"1"_s;
  }
  QString pannelli() {
    QString visti;
    for (int p = 0; p < Tabellone::pannelli; ++p) {
      if (t.pnlK(p).Visible()) visti += u"%1:%2 "_s.arg(p).arg(t.pnlK(p).Top());
    }
    return visti;
  }
  Banco b;
  Tabellone& t = b.parti().tabellone;
};

TEST_F(TabelloneTest, IPannelliSiChiudonoInFondo) {
  const std::pair<int, const char16_t*> casi[] = {{-1, u""},
                                                  {0, u"0:700 "},
                                                  {17, u"0:700 "},
                                                  {18, u"0:600 1:700 "},
                                                  {143, u"0:0 1:100 2:200 3:300 4:400 5:500 6:600 7:700 "},
                                                  {144, u""},
                                                  {40000, u""}};
  for (const auto& [posizione, attesi] : casi) {
    b.sql(u"delete from tessere_chiavi"_s);
    b.chiave(u"1000000001"_s, 1, posizione);
    EXPECT_FALSE(t.situazione_chiavi().fallito());
    EXPECT_EQ(pannelli(), QString::fromUtf16(attesi)) << posizione;
  }
}

}  // namespace
}  // namespace lokera::prova
