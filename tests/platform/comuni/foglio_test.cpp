#include <gtest/gtest.h>
#include <limits>

#include "platform/comuni/macchina_di_prova.h"
#include "platform/momento.h"

namespace lokera {
namespace {

TEST(Foglio, holds_texts_numbers_and_moments_as_what_they_are_and_refuses_the_rest) {
  const auto m = crea_macchina_di_prova();
  const QString nome = m->file(u"movimenti.xlsx"_s);
  const auto libro = m->macchina().fogli.nuovo(nome);
  libro->colonna(2, 12.5, Workbook::Allineamento::destra);
  EXPECT_TRUE(libro->scrivi(1, 1, u"Movimenti - "_s, true));
  EXPECT_TRUE(libro->scrivi(3, 2, u"0012 <è> =1+1"_s));
  EXPECT_TRUE(libro->scrivi(3, 1, u"dopo"_s));  // within a row in any order
  EXPECT_TRUE(libro->scrivi(4, 1, 1.5));
  EXPECT_TRUE(libro->scrivi(4, 2, QDate(2008, 11, 30)));
  EXPECT_TRUE(libro->scrivi(4, 3, momento(QDate(2008, 11, 30), QTime(12, 0))));
  struct Caso {
    int riga, colonna;
    ValoreFoglio valore;
    bool ammesso;
  };
  const Caso casi[] = {{3, 3, u"above"_s, false},
                       {0, 1, 1.0, false},
                       {5, 0, 1.0, false},
                       {5, 16385, 1.0, false},
                       {5, 1, QString(32768, u'x'), false},
                       {5, 1, QString(32767, u'x'), true},
                       {5, 2, QDate(1899, 12, 31), false},
                       {5, 2, QDateTime(), false},
                       {5, 2, std::numeric_limits<double>::infinity(), false},
                       {1048576, 16384, 1.0, true},
                       {1048577, 1, 1.0, false}};
  for (const Caso& c : casi)
    EXPECT_EQ(libro->scrivi(c.riga, c.colonna, c.valore), c.ammesso) << c.riga << ' ' << c.colonna;
  EXPECT_EQ(libro->salva(), QString());
  const char* const attese[][3] = {
      {"Movimenti - ", "", ""}, {"", "", ""}, {"dopo", "0012 <è> =1+1", ""}, {"1.5", "39782", "39782.5"}};
  for (int riga = 0; riga < 4; ++riga)
    for (int colonna = 0; colonna < 3; ++colonna)
      EXPECT_EQ(m->cella(nome, riga + 1, colonna + 1), QString::fromUtf8(attese[riga][colonna]));
}

}  // namespace
}  // namespace lokera
