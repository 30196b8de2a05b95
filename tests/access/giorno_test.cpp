#include "access/giorno.h"

#include "aiuti/banco.h"

namespace lokera::prova {
namespace {

QString giorno_di(Banco& b, QDate data) {
  b.vm.orologio().imposta(momento(data, QTime(10, 0)));
  EXPECT_FALSE(b.main().giorno.tipo_giorno());
  return b.main().giorno.giorno_corrente();
}

TEST(Giorno, SpecialePrimaDiQuestAnnoPoiDiOgniAnnoPoiSettimana) {
  Banco b;
  const auto speciale = [&](int gg, int mm, int aaaa, const char16_t* giorno) {
    b.sql(QStringLiteral("insert into giorni_particolari (GG, MM, AAAA, giorno) values (?, ?, ?, ?)"),
          {gg, mm, aaaa, QString::fromUtf16(giorno)});
  };
  speciale(25, 12, 0, u"Domenica");
  speciale(25, 12, 2009, u"Sabato");
  speciale(25, 12, 2007, u"Lunedì");
  speciale(26, 12, 2008, u" ");
  const std::pair<QDate, const char16_t*> casi[] = {{QDate(2008, 12, 25), u"Domenica"},
                                                    {QDate(2009, 12, 25), u"Sabato"},
                                                    {QDate(2008, 12, 26), u"Venerdì"},
                                                    {QDate(2008, 12, 1), u"Lunedì"},
                                                    {QDate(2008, 11, 30), u"Domenica"}};
  for (const auto& [data, atteso] : casi) EXPECT_EQ(giorno_di(b, data), QString::fromUtf16(atteso));
}

TEST(Giorno, NellaSecondaLinguaIlGiornoSpecialeRestaComEScritto) {
  Banco b;
  b.db().lingua_interfaccia = 1;
  EXPECT_EQ(giorno_di(b, QDate(2008, 12, 1)), QStringLiteral("Monday"));
  b.sql(
      QStringLiteral("insert into giorni_particolari (GG, MM, AAAA, giorno) values (1, 12, 0, 'Domenica')"));
  EXPECT_EQ(giorno_di(b, QDate(2008, 12, 1)), QStringLiteral("Domenica"));
}

TEST(Giorno, SuUnFileVecchioFaLaMigrazioneEChiedeDiNuovo) {
  Banco b;
  b.sql(QStringLiteral("drop table giorni_particolari"));
  EXPECT_EQ(giorno_di(b, QDate(2008, 12, 1)), QStringLiteral("Lunedì"));
  EXPECT_EQ(b.conta(QStringLiteral("giorni_particolari")), 0);
  b.sql(QStringLiteral("drop table giorni_particolari"));
  b.sql(QStringLiteral("create view giorni_particolari as select 1 as GG"));  // no migration mends that
  EXPECT_EQ(b.main().giorno.tipo_giorno().classe, ClasseErrore::schema);
}

TEST(Giorno, DietroUnBloccoNonDecideENonMigra) {
  Banco b;
  b.sql(
      QStringLiteral("insert into giorni_particolari (GG, MM, AAAA, giorno) values (1, 12, 0, 'Domenica')"));
  b.sql(QStringLiteral("drop table PIANIF_RESET"));
  Connection altra;
  ASSERT_FALSE(altra.Open(b.file(), password_database()));
  esegui(altra, QStringLiteral("begin exclusive"));
  EXPECT_EQ(b.main().giorno.tipo_giorno().classe, ClasseErrore::bloccato);
  esegui(altra, QStringLiteral("rollback"));
  EXPECT_EQ(giorno_di(b, QDate(2008, 12, 1)), QStringLiteral("Domenica"));
  Recordset rs;
  EXPECT_TRUE(rs.Open(QStringLiteral("select * from PIANIF_RESET"), b.db().connessione_db));
}

}  // namespace
}  // namespace lokera::prova
