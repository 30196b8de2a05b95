#include "access/giorno.h"

#include "aiuti/banco.h"

namespace lokera::prova {
namespace {

using namespace Qt::StringLiterals;

QString giorno_di(Banco& b, QDate data) {
  b.vm.orologio().imposta(momento(data, QTime(10, 0)));
  EXPECT_FALSE(b.parti().giorno.tipo_giorno().fallito());
  return b.parti().giorno.giorno_corrente();
}

TEST(Giorno, SpecialePrimaDiQuestAnnoPoiDiOgniAnnoPoiSettimana) {
  Banco b;
  b.sql(
      u"insert into giorni_particolari (GG, MM, AAAA, giorno) values (25, 12, 0, 'Domenica'),"
      u" (25, 12, 2009, 'Sabato'), (25, 12, 2007, 'Lunedì'), (26, 12, 2008, ' ')"_s);
  const std::pair<QDate, QString> casi[] = {{QDate(2008, 12, 25), u"Domenica"_s},
                                            {QDate(2009, 12, 25), u"Sabato"_s},
                                            {QDate(2008, 12, 26), u"Venerdì"_s},
                                            {QDate(2008, 12, 1), u"Lunedì"_s},
                                            {QDate(2008, 11, 30), u"Domenica"_s}};
  for (const auto& [data, atteso] : casi) EXPECT_EQ(giorno_di(b, data), atteso);
  b.db().lingua_interfaccia = 1;  // the week's words are translated, a special day's are not
  EXPECT_EQ(giorno_di(b, QDate(2008, 12, 1)), u"Monday"_s);
  EXPECT_EQ(giorno_di(b, QDate(2008, 12, 25)), u"Domenica"_s);
}

TEST(Giorno, SuUnFileVecchioFaLaMigrazioneEChiedeDiNuovo) {
  Banco b;
  b.sql(u"drop table giorni_particolari"_s);
  EXPECT_EQ(giorno_di(b, QDate(2008, 12, 1)), u"Lunedì"_s);
  EXPECT_EQ(b.conta(u"giorni_particolari"_s), 0);
  b.senza_giorni();
  EXPECT_EQ(b.parti().giorno.tipo_giorno().classe, ClasseErrore::schema);
}

TEST(Giorno, DietroUnBloccoNonDecideENonMigra) {
  Banco b;
  b.sql(u"insert into giorni_particolari (GG, MM, AAAA, giorno) values (1, 12, 0, 'Domenica')"_s);
  b.sql(u"drop table PIANIF_RESET"_s);
  Connection altra;
  ASSERT_FALSE(altra.Open(b.file(), password_database()).fallito());
  esegui(altra, u"begin exclusive"_s);
  EXPECT_EQ(b.parti().giorno.tipo_giorno().classe, ClasseErrore::bloccato);
  esegui(altra, u"rollback"_s);
  EXPECT_EQ(giorno_di(b, QDate(2008, 12, 1)), u"Domenica"_s);
  Recordset rs;
  EXPECT_TRUE(rs.Open(u"select * from PIANIF_RESET"_s, b.db().connessione_db).fallito());
}

}  // namespace
}  // namespace lokera::prova
