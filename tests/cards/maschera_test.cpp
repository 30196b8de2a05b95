#include "cards/maschera.h"

#include "aiuti/banco.h"
#include "bench/semplice/maschera_semplice.h"

namespace lokera::prova {
namespace {

using namespace Qt::StringLiterals;

TEST(Maschera, FasciaDaCinqueMinutiPrimaAlMinutoDellaChiusura) {
  for (const auto& [adesso, vige] : {std::pair(QTime(7, 55, 59), false),
                                     {QTime(7, 56), true},
                                     {QTime(12, 0, 59), true},
                                     {QTime(12, 1), false}})
    EXPECT_EQ(fascia_in_vigore(QTime(8, 0), QTime(12, 0), adesso), vige) << adesso.toString().toStdString();
}

class MascheraTest : public ::testing::Test {
 protected:
  QByteArray maschera(const QString& codice, QTime adesso = QTime(10, 0)) {
    const auto m = calcola_maschera(b.db().connessione_db, codice, u"Lunedì"_s, adesso);
    EXPECT_FALSE(m.fallito());
    QByteArray veloce = maschera_esadecimale(*m);
    EXPECT_EQ(veloce, maschera_semplice(b.db().connessione_db, codice, u"Lunedì"_s, adesso));
    return veloce;
  }
  Banco b;
};

TEST_F(MascheraTest, PosizioniDellaMaschera) {
  b.tessera(u"0000000001"_s);
  b.abilita(u"0000000001"_s, 1);
  EXPECT_EQ(maschera(u"0000000001"_s), QByteArray(50, '0'));
  // The keys of all cabinets count, but no place beyond what a mask can say.
  for (const int p : {0, 7, 8, 199, 200}) b.chiave(u"%1"_s.arg(1000000000 + p), 1 + p % 2, p);
  EXPECT_EQ(maschera(u"0000000001"_s), "8180" + QByteArray(44, '0') + "01");
}

// Many cards, groups and bands by a fixed rule: both methods give the same digits for every case.
TEST_F(MascheraTest, UgualeAlMetodoSemplice) {
  for (int i = 0; i < 230; ++i) b.chiave(u"%1"_s.arg(5000 + i, 10, 10, '0'_L1), 1 + i % 3, i, i % 7);
  for (int g = 0; g < 7; ++g) {
    if (g % 3 == 0) b.fascia(1, g, u"Lunedì"_s, QTime(8, 0), QTime(9 + g, 30));
    if (g % 3 == 0) b.fascia(1, g, u"Lunedì"_s, QTime(20, 0), QTime(21, 0));
    if (g % 2 == 0) b.fascia(2, g, u"Lunedì"_s, QTime(14, 0), QTime(18, 0));
    b.fascia(1, g, u"Martedì"_s, QTime(0, 0), QTime(1, 0));
  }
  for (int t = 0; t < 12; ++t) {
    const QString codice = u"%1"_s.arg(t, 10, 10, '0'_L1);
    if (t != 11) b.tessera(codice, t % 3);
    for (int g = 0; g < 7; ++g) {
      if ((t + g) % 2 == 0) b.abilita(codice, g);
    }
    for (const QTime adesso :
         {QTime(7, 55), QTime(7, 56), QTime(12, 30), QTime(12, 31), QTime(17, 0), QTime(23, 59)})
      maschera(codice, adesso);
  }
}

}  // namespace
}  // namespace lokera::prova
