#include "platform/momento.h"
#include "store/archivio.h"

namespace lokera {

using prova::testo;
using Limiti = prova::Archivio;

TEST_F(Limiti, TipiEMisureTengono) {
  fai("create table [prova] ([i] integer, [l] long, [b] byte, [v] yesno, [s] single, [d] double, "
      "[q] date, [t] text(10), [m] memo, [n] numeric)");
  const QString emoji = testo("😀😀😀😀😀😀😀😀😀😀");
  const struct {
    const char* colonna;
    QVariant valore;
    const char* rifiuto;  ///< a piece of the message; null when the value is taken
  } casi[] = {{"i", 32767, nullptr},
              {"i", 40000, "i: serve un numero intero"},
              {"i", 1.5, "i: serve"},
              {"i", u"abc"_s, "i: serve"},
              {"l", 2147483648LL, "l: serve"},
              {"v", 2, "v: serve vero"},
              {"d", u"x"_s, "d: serve un numero"},
              {"n", u"x"_s, "n: serve un numero"},
              {"q", momento(QDate(2008, 2, 29), QTime(23, 59, 59)), nullptr},
              {"q", u"domani"_s, "q: serve una data"},
              {"q", u"2008-02-30 00:00:00"_s, "q: serve una data"},
              {"q", 12, "q: serve una data"},
              {"t", testo("àèìòùàèìòù"), nullptr},
              {"t", emoji, nullptr},
              {"t", u"12345678901"_s, "t: al massimo 10 caratteri"},
              {"m", QString(10000, u'x'), nullptr},
              {"q", QVariant(), nullptr}};
  for (const auto& c : casi) {
    const QString detto = esegui(QByteArray("insert into prova (") + c.colonna + ") values (?)", {c.valore});
    const bool come = c.rifiuto ? detto.contains(testo(c.rifiuto)) : detto.isEmpty();
    EXPECT_TRUE(come) << c.colonna << ": " << detto.toStdString();
  }
  aggiungi_campo(db, u"gruppi"_s, u"sigla"_s, u"text(3)"_s);
  EXPECT_TRUE(
      esegui("insert into gruppi (codice, sigla) values (1, 'abcd')").contains(testo("SIGLA: al massimo 3")));
  EXPECT_EQ(esegui("insert into gruppi (codice, SIGLA) values (1, 'abc')"), QString());
  EXPECT_EQ(leggi("select * from gruppi"), QStringList{"1|-|abc"});
}

TEST_F(Limiti, NullVuotoEBlancoSonoTreEUnaChiaveNonHaNullNeDoppioni) {
  for (const QVariant& v : {QVariant(), QVariant(QString()), QVariant(u" "_s)})
    fai("insert into securety_locks (tabella) values (?)", {v});
  EXPECT_EQ(leggi("select tabella from securety_locks"), (QStringList{"-", "", " "}));
  EXPECT_EQ(leggi("select count(*) from securety_locks where tabella = ' '"), QStringList{"1"});
  EXPECT_TRUE(esegui("insert into gruppi (descrizione) values ('x')").contains(testo("non può essere Null")));
  fai("insert into traduzioni (italiano) values ('Perché no')");
  EXPECT_TRUE(esegui("insert into traduzioni (italiano) values ('PERCHÉ NO')").contains(testo("Esiste già")));
}

TEST_F(Limiti, TestiENomiSenzaMaiuscoleEFunzioni) {
  fai("insert into OPERATORI (USER, Pwd, su, pc) values ('Niccolò', 'aB', 1, 'PC-À')");
  EXPECT_EQ(leggi("select PWD from operatori where User = 'NICCOLÒ'"), QStringList{"aB"});
  EXPECT_EQ(leggi("select su from operatori where pc in ('x', 'pc-à')"), QStringList{"1"});
  fai("insert into operatori (user, pc) values ('b', 'pc-À')");
  EXPECT_EQ(leggi("select distinct pc from operatori").size(), 1);
  EXPECT_EQ(leggi("select user from operatori order by user"), (QStringList{"b", testo("Niccolò")}));
  EXPECT_EQ(leggi("select year(#02/01/2008#), month(#02/01/2008#), mid('abcdef', 2, 3), ucase('perché ß'), "
                  "year(Null)"),
            QStringList{testo("2008|2|bcd|PERCHÉ ß|-")});
}

}  // namespace lokera
