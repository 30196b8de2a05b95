#include "store/dialetto.h"

#include "store/archivio.h"
#include "store/confronto.h"
#include "store/date_jet.h"

using namespace lokera;
using prova::testo;

TEST(Dialetto, AbbassaLeFormeDelleIstruzioni) {
  const struct {
    const char *prima, *dopo;
  } casi[] = {{"select * from t where d >= #12/25/2008#", "select * from t where d >= '2008-12-25 00:00:00'"},
              {"select * from t where o <= #08:30#", "select * from t where o <= '1899-12-30 08:30:00'"},
              {"Select top 1 * from t order by a;", "Select * from t order by a limit 1"},
              {"select distinct top 3 a from t", "select distinct a from t limit 3"},
              {"select a from t where b in (select top 2 b from u) and c = 1",
               "select a from t where b in (select b from u limit 2) and c = 1"},
              {"select * from ((a inner join b on a.x = b.x) left join c on (a.y = c.y)) where z = (1)",
               "select * from a inner join b on a.x = b.x left join c on (a.y = c.y) where z = (1)"},
              {"select 'top 1 --[x] #01/02/2008#' from t", "select 'top 1 --[x] #01/02/2008#' from t"},
              {"-- l'ultimo\nselect /* #x# */ top 1 a from t -- fine", "select a from t limit 1"}};
  for (const auto& c : casi) EXPECT_EQ(abbassa(testo(c.prima))->sql.simplified(), testo(c.dopo)) << c.prima;
  EXPECT_TRUE(abbassa(u"select #13/40/2008#").fallito());
}

TEST(Date, LeggeCioCheSiScrive) {
  const struct {
    const char *scritta, *giorno_prima, *mese_prima;
  } casi[] = {{"1/2/2008", "2008-02-01 00:00:00", "2008-01-02 00:00:00"},
              {"01-02-08 10.20.30", "2008-02-01 10:20:30", "2008-01-02 10:20:30"},
              {"1/2/29", "2029-02-01 00:00:00", "2029-01-02 00:00:00"},
              {"1/2/30", "1930-02-01 00:00:00", "1930-01-02 00:00:00"},
              {"25/12/2008", "2008-12-25 00:00:00", "2008-12-25 00:00:00"},
              {"2008-02-01T10:20", "2008-02-01 10:20:00", "2008-02-01 10:20:00"},
              {" 8:05 ", "1899-12-30 08:05:00", "1899-12-30 08:05:00"}};
  const auto letta = [](const auto& c, OrdineData ordine) {
    const auto d = leggi_data(testo(c.scritta), ordine);
    return d ? data_memorizzata(*d) : QByteArray("niente");
  };
  for (const auto& c : casi) {
    EXPECT_EQ(letta(c, OrdineData::giorno_mese), c.giorno_prima) << c.scritta;
    EXPECT_EQ(letta(c, OrdineData::mese_giorno), c.mese_prima) << c.scritta;
  }
  for (const char* no :
       {"", " ", "__/__/____", "31/02/2008", "1/2", "24:00", "1/2/2008 25:00", "1/2/20081", "ieri"}) {
    EXPECT_FALSE(leggi_data(testo(no), OrdineData::giorno_mese)) << no;
  }
}

TEST(Confronto, SenzaMaiuscoleAccentiDistinti) {
  const struct {
    const char *a, *b;
    int segno;
  } casi[] = {{"Niccolò", "NICCOLÒ", 0}, {"straße", "STRAßE", 0}, {"Łódź", "łÓDŹ", 0},
              {"citta", "città", -1},    {"zeta", "à", 1},        {"", " ", -1},
              {"a", "a ", -1},           {"😀", "😁", -1},          {"\xff", "à", 1}};
  for (const auto& c : casi) {
    const auto segno = [](int n) { return n < 0 ? -1 : n > 0 ? 1 : 0; };
    EXPECT_EQ(segno(confronta(QByteArrayView(c.a), QByteArrayView(c.b))), c.segno) << c.a << " " << c.b;
    EXPECT_EQ(segno(confronta(QByteArrayView(c.b), QByteArrayView(c.a))), -c.segno) << c.b << " " << c.a;
  }
}

TEST(Confronto, Like) {
  const struct {
    const char *modello, *testo;
    bool somiglia;
  } casi[] = {{"ROSSI%", "Rossi Maria", true},
              {"%à%", "CITTÀ nuova", true},
              {"_", "à", true},
              {"_", "", false},
              {"%", "", true},
              {"a%b%c", "aXbXbXc", true},
              {"a%b%c", "aXcXb", false},
              {"a[b]", "ab", false},
              {"a*", "ab", false},
              {"abc", "abcd", false},
              {"%%x_", "xxy", true}};
  for (const auto& c : casi) {
    EXPECT_EQ(somiglia(lettere_piegate(c.modello), c.testo), c.somiglia) << c.modello << " " << c.testo;
  }
}
