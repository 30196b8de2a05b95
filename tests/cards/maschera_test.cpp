#include "cards/maschera.h"

#include "aiuti/banco.h"
#include "bench/semplice/maschera_semplice.h"

namespace lokera::prova {
namespace {

using namespace Qt::StringLiterals;

TEST(Maschera, ByteEsadecimale) {
  const std::pair<QByteArray, QByteArray> casi[] = {{"00000000", "00"}, {"00001010", "0A"},
                                                    {"11111111", "FF"}, {"", "00"},
                                                    {"101", "05"},      {"111111111", "00"}};
  for (const auto& [bit, testo] : casi) EXPECT_EQ(byte_esadecimale(bit), testo) << bit.toStdString();
}

TEST(Maschera, FasciaDaCinqueMinutiPrimaAlMinutoDellaChiusura) {
  const QTime dalle(8, 0);
  const QTime alle(12, 0);
  EXPECT_FALSE(fascia_in_vigore(dalle, alle, QTime(7, 55, 59)));
  EXPECT_TRUE(fascia_in_vigore(dalle, alle, QTime(7, 56)));
  EXPECT_TRUE(fascia_in_vigore(dalle, alle, QTime(12, 0, 59)));
  EXPECT_FALSE(fascia_in_vigore(dalle, alle, QTime(12, 1)));
}

class MascheraTest : public ::testing::Test {
 protected:
  QByteArray maschera(const QString& codice, QTime adesso = QTime(10, 0)) {
    const auto m = calcola_maschera(b.db().connessione_db, codice, u"Lunedì"_s, adesso);
    EXPECT_FALSE(m.fallito());
    const QByteArray veloce = maschera_esadecimale(*m);
    EXPECT_EQ(veloce, maschera_semplice(b.db().connessione_db, codice, u"Lunedì"_s, adesso));
    return veloce;
  }
  Banco b;
};

TEST_F(MascheraTest, PosizioniDellaMaschera) {
  b.tessera(u"0000000001"_s);
  b.abilita(u"0000000001"_s, 1);
  EXPECT_EQ(maschera(u"0000000001"_s), QByteArray(50, '0'));
  b.chiave(u"1000000000"_s, 1, 0);
  EXPECT_TRUE(maschera(u"0000000001"_s).startsWith("80"));
  b.chiave(u"1000000007"_s, 2, 7);  // the keys of all cabinets count
  b.chiave(u"1000000008"_s, 1, 8);
  EXPECT_TRUE(maschera(u"0000000001"_s).startsWith("8180"));
  b.chiave(u"1000000199"_s, 1, 199);
  b.chiave(u"1000000200"_s, 1, 200);  // beyond what a mask can say
  EXPECT_TRUE(maschera(u"0000000001"_s).endsWith("01"));
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
