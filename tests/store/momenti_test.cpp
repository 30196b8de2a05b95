// Moments that a zone's clocks skip: run in several zones, by TZ.
#include "platform/momento.h"
#include "store/archivio.h"
#include "store/date_jet.h"

namespace lokera {

using Momenti = prova::Archivio;

TEST_F(Momenti, NessunaZonaLiTocca) {
  const struct {
    QDateTime momento;
    const char *memorizzato, *digitato;
  } casi[] = {
      {momento(QDate(2026, 3, 29), QTime(2, 30)), "2026-03-29 02:30:00", "29/03/26 02.30.00"},  // Rome
      {momento(QDate(2008, 10, 19)), "2008-10-19 00:00:00", "19/10/2008"},                      // Sao Paulo
      {momento(QDate(2011, 12, 30), QTime(12, 0)), "2011-12-30 12:00:00", "30/12/2011 12:00"},  // Apia
      {momento(QDate(2008, 10, 26), QTime(2, 30)), "2008-10-26 02:30:00", "26/10/08 2.30"}};    // read twice
  for (const auto& k : casi) {
    fai("delete from securety_locks");
    fai("insert into securety_locks (tabella, data) values ('a', ?)", {k.momento});
    Recordset rs;
    apri(rs, "select * from securety_locks");
    EXPECT_EQ(rs.valore(u"data").toDateTime(), k.momento) << k.memorizzato;
    for (const QVariant& scritto : {QVariant(QString::fromLatin1(k.digitato)), QVariant(k.momento)}) {
      ASSERT_FALSE(rs.imposta(u"data", QVariant()).fallito());
      ASSERT_FALSE(rs.imposta(u"data", scritto).fallito()) << k.digitato;
      ASSERT_FALSE(rs.Update().fallito());
      EXPECT_EQ(leggi("select data from securety_locks"), QStringList{QString::fromLatin1(k.memorizzato)});
    }
    const QDateTime letto = da_data_memorizzata(k.memorizzato);
    EXPECT_EQ(letto.addSecs(3600).time(), k.momento.time().addSecs(3600)) << k.memorizzato;
    EXPECT_EQ(data_memorizzata(letto.addDays(1)).mid(11), QByteArray(k.memorizzato).mid(11));
  }
}

}  // namespace lokera
