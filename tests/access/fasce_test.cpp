#include "access/fasce.h"

#include "aiuti/banco.h"
#include "ledger/coda_tessere.h"

namespace lokera::prova {
namespace {

const QString coda = QStringLiteral("aggiorn_tessere_oper");

class FasceTest : public ::testing::Test {
 protected:
  FasceTest() : b(momento(QDate(2008, 12, 1), QTime(0, 0))) {
    b.tessera(QStringLiteral("0000000001"), 1);
    b.tessera(QStringLiteral("0000000002"), 2);  // another operator group
    b.tessera(QStringLiteral("0000000003"), 1);  // may not use the key group
    b.abilita(QStringLiteral("0000000001"), 5);
    b.abilita(QStringLiteral("0000000002"), 5);
    b.abilita(QStringLiteral("0000000003"), 6);
    b.chiave(QStringLiteral("1000000001"), 1, 0, 5);
    b.chiave(QStringLiteral("1000000002"), 2, 0, 5);
    b.chiave(QStringLiteral("1000000003"), 2, 1, 5);
    b.chiave(QStringLiteral("1000000004"), 3, 0, 6);
    b.fascia(1, 5, QStringLiteral("Lunedì"), QTime(8, 0), QTime(12, 0));
  }

  /// Runs at that time of the day and returns how many pairs it queued; the queue is emptied after.
  qlonglong corsa(QTime ora) {
    b.vm.orologio().imposta(momento(giorno, ora));
    b.main().fasce.applica_fasce_orarie();
    const qlonglong accodate = b.conta(coda);
    b.sql(QStringLiteral("delete from aggiorn_tessere_oper"));
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
  b.sql(QStringLiteral("update fascie_orarie set alle_ore = #08:05#"));
  EXPECT_EQ(corsa(QTime(7, 58)), 2);
  EXPECT_EQ(corsa(QTime(8, 6)), 0);
  giorno = giorno.addDays(7);
  b.sql(
      QStringLiteral("update fascie_orarie set alle_ore = #08:08#"));  // ten minutes later is too short, too
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
  const QString codice = QStringLiteral("0000000001");
  EXPECT_FALSE(tessere.accoda_cancellazione_conservando(codice, 1, MotivoConservare::non_raggiunta));
  b.vm.orologio().imposta(momento(giorno, QTime(8, 0)));
  b.main().fasce.applica_fasce_orarie();
  EXPECT_EQ(b.conta(coda), 2);
  EXPECT_EQ(b.conta(coda, QStringLiteral("operazione = 'D' and ID_lokera = 1")), 1);
  EXPECT_EQ(b.conta(coda, QStringLiteral("operazione = 'I' and ID_lokera = 2")), 1);
}

TEST_F(FasceTest, UnaTesseraInUscitaNonTornaDaNessunaParte) {
  b.in_coda(QStringLiteral("0000000001"), 3, QStringLiteral("D"));
  b.in_coda(QStringLiteral("0000000002"), 1, QStringLiteral("D"));
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
  b.fascia(1, 6, QStringLiteral("Lunedì"), QTime(8, 0), QTime(12, 0));
  b.fascia(1, 5, QStringLiteral("Lunedì"), QTime(7, 59), QTime(12, 0));
  for (const int i : {3, 60, 129}) {
    b.in_coda(codice(i), 2, QStringLiteral("D"));
    b.sql(QStringLiteral(
              "insert into tessere_da_conservare (ID_tessera, ID_lokera, motivo) values (?, 2, 'x')"),
          {codice(i)});
  }
  b.vm.orologio().imposta(momento(giorno, QTime(8, 0)));
  b.main().fasce.applica_fasce_orarie();
  EXPECT_EQ(b.conta(coda, QStringLiteral("operazione = 'D'")), 3);
  EXPECT_EQ(b.conta(coda), 131 * 2 + 131) << "two cabinets with keys of group 5, one of group 6";
  EXPECT_EQ(b.conta(coda, QStringLiteral("ID_lokera = 3")), 131);
}

TEST_F(FasceTest, UnErroreNonPerdeLaFascia) {
  int segnalati = 0;
  b.main().fasce.segnala = [&](const Errore&) { ++segnalati; };
  b.sql(QStringLiteral("alter table aggiorn_tessere_oper rename to via"));
  b.vm.orologio().imposta(momento(giorno, QTime(8, 0)));
  b.main().fasce.applica_fasce_orarie();
  EXPECT_EQ(segnalati, 1);
  EXPECT_EQ(b.conta(QStringLiteral("fascie_orarie"), QStringLiteral("data_esecuzione is null")), 1);
  b.sql(QStringLiteral("alter table via rename to aggiorn_tessere_oper"));
  EXPECT_EQ(corsa(QTime(8, 5)), 2);
}

}  // namespace
}  // namespace lokera::prova
