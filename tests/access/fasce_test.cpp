#include "access/fasce.h"

#include "aiuti/banco.h"

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
  struct Caso {
    const char* nome;
    QString alle;
    QList<std::pair<QTime, int>> corse;
  };
  const QList<std::pair<QTime, int>> normale = {{QTime(7, 55, 59), 0}, {QTime(7, 56), 2}, {QTime(9, 0), 0},
                                                {QTime(12, 0, 59), 0}, {QTime(12, 1), 2}, {QTime(12, 30), 0},
                                                {QTime(23, 59), 0}};
  const Caso casi[] = {{"a day", u"12:00"_s, normale},
                       {"the same a week later", u"12:00"_s, normale},
                       {"begun in the closing minute, which opens nothing any more",
                        u"12:00"_s,
                        {{QTime(12, 0), 0}, {QTime(14, 0), 2}, {QTime(14, 5), 0}}},
                       {"too short for a second run", u"08:05"_s, {{QTime(7, 58), 2}, {QTime(8, 6), 0}}},
                       {"ten minutes from the first run are too short, too",
                        u"08:08"_s,
                        {{QTime(7, 58), 2}, {QTime(8, 9), 0}}}};
  for (const Caso& c : casi) {
    b.sql(u"update fascie_orarie set alle_ore = #%1#"_s.arg(c.alle));
    for (const auto& [ora, accodate] : c.corse)
      EXPECT_EQ(corsa(ora), accodate) << c.nome << ' ' << ora.toString().toStdString();
    giorno = giorno.addDays(7);
  }
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
