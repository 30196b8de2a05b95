#include "access/fasce.h"

#include "aiuti/banco.h"
#include "ledger/coda_tessere.h"

namespace lokera::prova {
namespace {

using namespace Qt::StringLiterals;

const QString coda = u"aggiorn_tessere_oper"_s;

class FasceTest : public ::testing::Test {
 protected:
  FasceTest() : b(momento(QDate(2008, 12, 1), QTime(0, 0))) {
    b.tessera(u"0000000001"_s, 1);
    b.tessera(u"0000000002"_s, 2);  // another operator group
    b.tessera(u"0000000003"_s, 1);  // may not use the key group
    b.abilita(u"0000000001"_s, 5);
    b.abilita(u"0000000002"_s, 5);
    b.abilita(u"0000000003"_s, 6);
    b.chiave(u"1000000001"_s, 1, 0, 5);
    b.chiave(u"1000000002"_s, 2, 0, 5);
    b.chiave(u"1000000003"_s, 2, 1, 5);
    b.chiave(u"1000000004"_s, 3, 0, 6);
    b.fascia(1, 5, u"Lunedì"_s, QTime(8, 0), QTime(12, 0));
  }

  /// Runs at that time of the day and returns how many pairs it queued; the queue is emptied after.
  qlonglong corsa(QTime ora) {
    b.vm.orologio().imposta(momento(giorno, ora));
    b.parti().fasce.applica_fasce_orarie();
    const qlonglong accodate = b.conta(coda);
    b.sql(u"delete from aggiorn_tessere_oper"_s);
    return accodate;
  }

  Banco b;
  QDate giorno{2008, 12, 1};
};

TEST_F(FasceTest, UnaVoltaAllAperturaEUnaAllaChiusura) {
  const std::pair<QTime, int> casi[] = {{QTime(7, 55, 59), 0}, {QTime(7, 56), 2}, {QTime(9, 0), 0},
                                        {QTime(12, 0, 59), 0}, {QTime(12, 1), 2}, {QTime(12, 30), 0},
                                        {QTime(23, 59), 0}};
  for (int g = 0; g < 2; ++g, giorno = giorno.addDays(7)) {
    for (const auto& [ora, accodate] : casi) EXPECT_EQ(corsa(ora), accodate) << ora.toString().toStdString();
  }
}

TEST_F(FasceTest, PartitiAlPomeriggioBastaLaChiusura) {
  EXPECT_EQ(corsa(QTime(12, 0)), 0);  // the closing minute opens nothing any more
  EXPECT_EQ(corsa(QTime(14, 0)), 2);
  EXPECT_EQ(corsa(QTime(14, 5)), 0);
}

TEST_F(FasceTest, UnaFasciaCortaNonHaLaSecondaCorsa) {
  b.sql(u"update fascie_orarie set alle_ore = #08:05#"_s);
  EXPECT_EQ(corsa(QTime(7, 58)), 2);
  EXPECT_EQ(corsa(QTime(8, 6)), 0);
  giorno = giorno.addDays(7);
  b.sql(u"update fascie_orarie set alle_ore = #08:08#"_s);  // ten minutes later is too short, too
  EXPECT_EQ(corsa(QTime(7, 58)), 2);
  EXPECT_EQ(corsa(QTime(8, 9)), 0);
}

/// A clock on which everything takes long, and a loop that lets others in.
struct Lento : Clock, EventLoop {
  QDateTime adesso() const override { return momento(QDate(2008, 12, 1), QTime(8, 0)); }
  Monotonic monotono() const override { return ora += 20ms; }
  void esegui_eventi(Monotonic) override { evento(); }
  mutable Monotonic ora{};
  std::function<void()> evento;
};

TEST_F(FasceTest, UnaCorsaLungaCedeFuoriDalleTransazioniENonNeTrovaUnAltra) {
  Lento lento;
  PolledWait attesa(lento, lento);
  Giorno oggi(b.db(), lento, b.console->traduttore());
  FasceOrarie fasce(b.db(), attesa, oggi);
  int ceduto = 0;
  lento.evento = [&] {
    EXPECT_FALSE(b.db().connessione_db.in_transazione());
    if (++ceduto < 100) fasce.applica_fasce_orarie();
  };
  fasce.applica_fasce_orarie();
  EXPECT_GT(ceduto, 1);
  EXPECT_LT(ceduto, 10);
  EXPECT_EQ(b.conta(coda), 2);
}

TEST_F(FasceTest, ChiEInCodaRestaComE) {
  CodaTessere tessere(b.db().connessione_db);
  const QString codice = u"0000000001"_s;
  EXPECT_FALSE(
      tessere.accoda_cancellazione_conservando(codice, 1, MotivoConservare::non_raggiunta).fallito());
  b.vm.orologio().imposta(momento(giorno, QTime(8, 0)));
  b.parti().fasce.applica_fasce_orarie();
  EXPECT_EQ(b.conta(coda), 2);
  EXPECT_EQ(b.conta(coda, u"operazione = 'D' and ID_lokera = 1"_s), 1);
  EXPECT_EQ(b.conta(coda, u"operazione = 'I' and ID_lokera = 2"_s), 1);
}

TEST_F(FasceTest, UnaTesseraInUscitaNonTornaDaNessunaParte) {
  b.in_coda(u"0000000001"_s, 3, u"D"_s);
  b.in_coda(u"0000000002"_s, 1, u"D"_s);
  EXPECT_EQ(corsa(QTime(8, 0)), 2);
  EXPECT_EQ(corsa(QTime(12, 1)), 2);  // the deletions have been served
}

TEST_F(FasceTest, AncheInMoltiOgnunoUnaVoltaEChiEInCodaRestaComE) {
  const auto codice = [](int i) { return QString::number(2'000'000'000 + i); };
  for (int i = 0; i < 130; ++i) {
    b.tessera(codice(i), 1);
    b.abilita(codice(i), 5);
    b.abilita(codice(i), 6);
  }
  b.fascia(1, 6, u"Lunedì"_s, QTime(8, 0), QTime(12, 0));
  b.fascia(1, 5, u"Lunedì"_s, QTime(7, 59), QTime(12, 0));
  for (const int i : {3, 60, 129}) {
    b.in_coda(codice(i), 2, u"D"_s);
    b.sql(u"insert into tessere_da_conservare (ID_tessera, ID_lokera, motivo) values (?, 2, 'x')"_s,
          {codice(i)});
  }
  b.vm.orologio().imposta(momento(giorno, QTime(8, 0)));
  b.parti().fasce.applica_fasce_orarie();
  EXPECT_EQ(b.conta(coda, u"operazione = 'D'"_s), 3);
  EXPECT_EQ(b.conta(coda), 131 * 2 + 131) << "two cabinets with keys of group 5, one of group 6";
  EXPECT_EQ(b.conta(coda, u"ID_lokera = 3"_s), 131);
}

TEST_F(FasceTest, UnErroreNonPerdeLaFascia) {
  int segnalati = 0;
  b.parti().fasce.segnala = [&](const Errore&) { ++segnalati; };
  b.sql(u"alter table aggiorn_tessere_oper rename to via"_s);
  b.vm.orologio().imposta(momento(giorno, QTime(8, 0)));
  b.parti().fasce.applica_fasce_orarie();
  EXPECT_EQ(segnalati, 1);
  EXPECT_EQ(b.conta(u"fascie_orarie"_s, u"data_esecuzione is null"_s), 1);
  b.sql(u"alter table via rename to aggiorn_tessere_oper"_s);
  EXPECT_EQ(corsa(QTime(8, 5)), 2);
}

}  // namespace
}  // namespace lokera::prova
