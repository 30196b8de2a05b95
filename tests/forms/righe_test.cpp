#include "forms/righe.h"

#include <gtest/gtest.h>

namespace lokera {
namespace {

QByteArray tutte(const Righe& righe) {
  QByteArray a;
  for (int i = 0; i < righe.conta(); ++i) a += (i > 0 ? "/" : "") + righe.riga(i).toByteArray();
  return a;
}

TEST(Righe, CellsAreReplacedInsideTheirRowWhateverTheirLength) {
  struct Caso {
    int colonna;
    QByteArray testo, attesa;
  };
  const Caso casi[] = {{0, "", "\tb\tc"},
                       {1, "molto lungo", "a\tmolto lungo\tc"},
                       {2, "x\ty", "a\tb\tx y"},
                       {4, "e", "a\tb\tc\t\te"}};
  for (const Caso& c : casi) {
    Righe righe;
    righe.aggiungi("prima");
    righe.aggiungi("a\tb\tc");
    righe.aggiungi("dopo");
    righe.imposta_cella(1, c.colonna, c.testo);
    EXPECT_EQ(tutte(righe), "prima/" + c.attesa + "/dopo");
    EXPECT_EQ(righe.cella(1, c.colonna), QByteArray(c.testo).replace('\t', ' '));
    EXPECT_EQ(righe.cella(1, 9), "");
  }
}

TEST(Righe, AListThatIsWrittenToAllDayDoesNotGrow) {
  Righe righe;
  for (int i = 0; i < 10; ++i) righe.aggiungi("1\tcabinet\tvuota");
  for (int i = 0; i < 200'000; ++i) righe.imposta_cella(i % 10, 1, QByteArray(i % 90, 'x'));
  EXPECT_LT(righe.byte_occupati(), 1 << 20);
  EXPECT_EQ(righe.riga(9), "1\t" + QByteArray(199'999 % 90, 'x') + "\tvuota");
}

TEST(Righe, ARowLongerThanABlockStandsBesideTheOthers) {
  const QByteArray lunga(3'000'000, 'l');
  Righe righe;
  righe.aggiungi("a");
  righe.aggiungi(lunga);
  righe.aggiungi("b");
  righe.togli(0);
  EXPECT_EQ(tutte(righe), lunga + "/b");
}

}  // namespace
}  // namespace lokera
