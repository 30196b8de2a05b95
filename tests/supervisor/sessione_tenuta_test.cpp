#include "link/sessione_tenuta.h"

#include "aiuti/banco.h"

namespace lokera::prova {
namespace {

/// A console whose cabinet 1 answers well and has nothing stored; the windows are those of cabinet 9.
class TenutaTest : public ::testing::Test {
 protected:
  TenutaTest() {
    b.lokera(1);
    b.main().Form_Load();
    b.vm.esegui_per(1s);
    b.parti().ciclo.applica_fasce_orarie = [this] { ++corse; };
    b.main().corrente.porta_a(u"9"_s, u"lokera 9"_s, u"127.000.000.009"_s);
  }
  SessioneDownload& sessione() { return b.parti().download; }
  bool risponde() { return accettata(sessione().scambia(componi_frame("000350"), 2)); }

  Banco b;
  LokeraFinta lokera{b.vm, u"127.0.0.2"_s, 10001, risponde_bene};
  LokeraFinta altra{b.vm, u"127.0.0.9"_s, 10001, risponde_bene};
  int corse = 0;  ///< of the time bands
};

TEST_F(TenutaTest, LeVisiteStannoFermeELeFasceComeVuoleLaFinestra) {
  for (const Fermi fermi : {Fermi::visite, Fermi::tick}) {
    const int prima = lokera.connessioni;
    corse = 0;
    {
      const SessioneTenuta tenuta(sessione(), fermi);
      EXPECT_TRUE(risponde()) << "what the visit has left connected serves on";
      b.parti().ciclo.mnuScarTrans_Click();
      b.vm.esegui_per(605s);
      EXPECT_EQ(lokera.connessioni, prima);
      EXPECT_EQ(corse, fermi == Fermi::visite ? 2 : 0);
    }
    EXPECT_FALSE(sessione().connessa());
    b.vm.esegui_per(29s);
    EXPECT_TRUE(fermi == Fermi::visite || lokera.connessioni == prima) << "the period begins anew";
    b.vm.esegui_per(5s);
    EXPECT_GT(lokera.connessioni, prima);
  }
}

TEST_F(TenutaTest, DueFinestreSiChiudonoInQualunqueOrdine) {
  struct Caso {
    Fermi una, altra;
    bool prima_una;  ///< the one that opened first closes first
  };
  for (const Caso& c : {Caso{Fermi::visite, Fermi::tick, true}, Caso{Fermi::visite, Fermi::tick, false},
                        Caso{Fermi::tick, Fermi::visite, true}, Caso{Fermi::tick, Fermi::visite, false},
                        Caso{Fermi::tick, Fermi::tick, true}}) {
    const Timer& timer = *b.parti().ciclo.TimerDownload;
    std::optional<SessioneTenuta> una(std::in_place, sessione(), c.una);
    una->connetti();
    std::optional<SessioneTenuta> altra(std::in_place, sessione(), c.altra);
    altra->connetti();
    EXPECT_FALSE(una->mia());
    const int prima = lokera.connessioni;
    (c.prima_una ? una : altra).reset();
    EXPECT_EQ(sessione().connessa(), c.prima_una) << "only its own connection is closed";
    EXPECT_EQ(risponde(), c.prima_una);
    EXPECT_EQ(timer.Enabled(), (c.prima_una ? c.altra : c.una) == Fermi::visite);
    b.vm.esegui_per(100s);
    EXPECT_EQ(lokera.connessioni, prima) << "one window is still there";
    (c.prima_una ? altra : una).reset();
    EXPECT_FALSE(sessione().connessa());
    EXPECT_TRUE(timer.Enabled());
    b.vm.esegui_per(35s);
    EXPECT_GT(lokera.connessioni, prima);
  }
}

// What the cabinet still sends of the visit stays in its store: the window would get its frames.
TEST_F(TenutaTest, CioCheRestaDellaVisitaNonSiPrende) {
  const SessioneTenuta tenuta(sessione(), Fermi::visite);
  lokera.ricevuti.clear();
  lokera.invia(componi_frame("00039000002"));
  lokera.invia(componi_frame("0003600000000000110000000010030110808150"));
  b.vm.esegui_per(15s);
  EXPECT_TRUE(lokera.ricevuti.isEmpty());
  EXPECT_EQ(b.conta(u"movimenti"_s), 0);
}

}  // namespace
}  // namespace lokera::prova
