#include "store/converti_sql.h"

#include "store/archivio.h"

namespace lokera {

using prova::testo;

TEST(ConvertiSql, TabellaDiConversioni) {
  const struct {
    const char *tipo, *prima, *dopo;
  } casi[] = {
      {"Access", "  select * from t ", "SELECT * FROM T"},
      {"Access", "select * from t where a='dell'acqua'", "SELECT * FROM T WHERE A = 'DELL''ACQUA'"},
      {"Access", "select * from t where a<='x' and b not  like'y%'",
       "SELECT * FROM T WHERE A <= 'X' AND B NOT LIKE 'Y%'"},
      {"Access", "select * from t where a in('x','y') and b='straße è'",
       "SELECT * FROM T WHERE A IN ('X','Y') AND B = 'STRAßE È'"},
      {"Access", "select * from t where a in ('x','y') and b = 'l','z'",
       "SELECT * FROM T WHERE A IN ('X','Y') AND B = 'L'','Z'"},
      {"sql", "select * from t where d >= #12/25/2008# and o = #08:30# and a = 'd'x'",
       "SELECT * FROM T WHERE D >= '25/12/2008' AND O = '08:30' AND A = 'D''X'"},
      {"ORACLE", "select top 5 * from t where a = 'x'",
       "SELECT * FROM T WHERE UPPER(A) = 'X' AND ROWNUM < 6"},
      {"ORACLE",
       "select a.*, c.d from ((a left join b on a.x = b.x) right join c on b.y = c.y) where a.n = 'd'x' "
       "order by a.x",
       "SELECT A.*, C.D FROM A, B, C WHERE UPPER(A.N) = 'D''X' AND A.X = B.X (+)  AND B.Y (+)  = C.Y "
       "ORDER BY A.X"},
      {"ORACLE", "delete from a where b not like 'x%' and c in (select top 2 c from d where e in ('u','v'))",
       "DELETE FROM A WHERE UPPER(B) NOT LIKE 'X%' AND C IN (SELECT C FROM D WHERE UPPER(E) IN ('U','V') "
       "AND "
       "ROWNUM < 3)"},
      {"ORACLE", "select year(d), month(d), mid(a, 1, 2), ucase(a) from t where d = #12/25/2008#",
       "SELECT TO_CHAR(D, 'YYYY'), TO_CHAR(D, 'MM'), SUBSTR(A, 1, 2), UPPER(A) FROM T WHERE D = "
       "'25/DEC/2008'"}};
  for (const auto& k : casi) EXPECT_EQ(converti_sql(testo(k.prima), testo(k.tipo)), testo(k.dopo)) << k.prima;
}

TEST(ConvertiSql, GiunzioniCheNonSiLeggono) {
  QString errore;
  converti_sql(u"select * from a join b on a.x = b.x"_s, u"ORACLE"_s, &errore);
  EXPECT_EQ(errore, u"Errore operatore JOIN"_s);
  converti_sql(u"select * from a"_s, u"ORACLE"_s, &errore);
  EXPECT_EQ(errore, QString());
}

using Apostrofi = prova::Archivio;

/// A name that was typed goes into the store, is found and is changed: joined into the statement or bound.
TEST_F(Apostrofi, AndataERitorno) {
  for (const char* digitato :
       {"dell'acqua", "D'Angelo l'altro", "Niccolo'", "tre'''", "'inizio", "Città d'Oriente", "senza"}) {
    const QString nome = testo(digitato);
    const auto converti = [&](const char* sql) { return converti_sql(testo(sql).replace(u"@"_s, nome)); };
    fai("delete from tessere_operatori");
    fai("insert into tessere_operatori (codice, intestazione) values ('1', ?)", {nome});
    for (const char* dove : {"intestazione = '@'", "intestazione like '%@%' and codice = '1'",
                             "intestazione in ('@','altro')", "codice in ('1','2') and intestazione='@'"}) {
      const QString sql = converti(QByteArray("select codice from tessere_operatori where ") + dove);
      EXPECT_EQ(prova::righe(c(), sql), QStringList{"1"}) << sql.toStdString();
    }
    fai("update tessere_operatori set intestazione = ' '");
    prova::esegui(c(),
                  converti("update tessere_operatori set intestazione = '@', codice='9' where codice = '1'"));
    EXPECT_EQ(leggi("select codice from tessere_operatori where intestazione = ?", {nome.toUpper()}),
              QStringList{"9"});
  }
}

}  // namespace lokera
