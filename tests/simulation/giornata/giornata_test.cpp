#include "simulation/giornata/giornata.h"

#include <gtest/gtest.h>

namespace lokera::simulazione {
namespace {

using namespace Qt::StringLiterals;

QByteArray come(const ImpostazioniGiornata& i, const EsitoGiornata& e) {
  return u"giornata --semi %1 --lokere %2 --ore %3 --ritmo %4%5%6%7%8\n  "_s.arg(i.seme)
             .arg(i.lokere)
             .arg(i.ore)
             .arg(i.eventi_ora)
             .arg(i.gestita ? u" --gestita"_s : QString(), i.lente ? u" --lente"_s : QString(),
                  i.segui_fasce ? u" --segui-fasce"_s : QString(), i.registri ? u" --registri"_s : QString())
             .toUtf8() +
         e.differenze.join(u"\n  "_s).toUtf8();
}

EsitoGiornata giornata_buona(const ImpostazioniGiornata& i) {
  EsitoGiornata e = vivi_giornata(i);
  EXPECT_TRUE(e.differenze.isEmpty()) << come(i, e).constData();
  return e;
}

// Each seed a test of its own, so that ctest spreads them.
class Semi : public testing::TestWithParam<int> {
 protected:
  quint64 seme() const { return static_cast<quint64>(GetParam()); }
};

class SitoPiccolo : public Semi {};
TEST_P(SitoPiccolo, Agrees) {
  const EsitoGiornata e = giornata_buona({.seme = seme(), .lokere = 6});
  EXPECT_GT(e.movimenti, 500);
  EXPECT_GT(e.visite, 1500);
}
INSTANTIATE_TEST_SUITE_P(Giornata, SitoPiccolo, testing::Range(1, 17));

class SitoGrande : public Semi {};
TEST_P(SitoGrande, Agrees) {
  const EsitoGiornata e = giornata_buona({.seme = seme(), .lokere = 20});
  EXPECT_GT(e.movimenti, 2000);
}
INSTANTIATE_TEST_SUITE_P(Giornata, SitoGrande, testing::Range(101, 104));

// A tick falls into a read: it moves on, and the read's rest waits for the next visit.
class SitoLento : public Semi {};
TEST_P(SitoLento, Agrees) {
  const EsitoGiornata e = giornata_buona({.seme = seme(), .lokere = 3, .lente = true, .eventi_ora = 75});
  EXPECT_EQ(e.annidate, 2);
}
INSTANTIATE_TEST_SUITE_P(Giornata, SitoLento, testing::Range(201, 204));

class SitoGestito : public Semi {};
TEST_P(SitoGestito, Agrees) {
  const int lokere = GetParam() % 3 == 0 ? 3 : GetParam() % 3;
  const EsitoGiornata e =
      giornata_buona({.seme = seme(), .lokere = lokere, .gestita = true, .eventi_ora = 40});
  EXPECT_GT(e.in_diretta, 10);
}
INSTANTIATE_TEST_SUITE_P(Giornata, SitoGestito, testing::Range(301, 310));

// Whenever a cabinet has been visited, its masks are those of a moment since the last band run.
class Fasce : public Semi {};
TEST_P(Fasce, ReachTheCabinetsWithinOneRunAndOneVisit) {
  giornata_buona({.seme = seme(), .lokere = 4, .guasti = false, .vicende = false, .segui_fasce = true});
}
INSTANTIATE_TEST_SUITE_P(Giornata, Fasce, testing::Range(401, 404));

// Keys and cards go through their windows all day, whatever the cabinets answer.
class Registri : public Semi {};
TEST_P(Registri, AreWhatTheCabinetsHold) {
  const bool gestita = GetParam() % 2 == 0;
  const EsitoGiornata e = giornata_buona({.seme = seme(),
                                          .lokere = 4,
                                          .ore = 8,
                                          .gestita = gestita,
                                          .lente = GetParam() % 4 == 0,
                                          .registri = true});
  EXPECT_GT(e.mosse, 10);
}
INSTANTIATE_TEST_SUITE_P(Giornata, Registri, testing::Range(501, 505));

TEST(Giornata, OfOneSeedIsTheSameToTheLastByte) {
  const ImpostazioniGiornata i{.seme = 7, .lokere = 3, .gestita = true};
  const EsitoGiornata prima = vivi_giornata(i);
  EXPECT_GT(prima.eliminate, 0);
  EXPECT_EQ(prima.impronta, vivi_giornata(i).impronta);
  ImpostazioniGiornata altra = i;
  altra.seme = 8;
  EXPECT_NE(prima.impronta, vivi_giornata(altra).impronta);
}

}  // namespace
}  // namespace lokera::simulazione
