#include "simulation/sessione_viva.h"

#include <gtest/gtest.h>

#include "link/protocollo.h"
#include "simulation/finta_rete.h"
#include "simulation/virtual_machine.h"

namespace lokera::simulazione {
namespace {

using prova::FintoCanale;

class SessioneVivaTest : public testing::Test {
 protected:
  SessioneVivaTest() {
    cabinet.appendi(4, chiave);
    viva.collega(canale);
    registro.Riga = [this](const QByteArray& riga) { righe << riga; };
  }
  ~SessioneVivaTest() override { viva.scollega(); }

  bool presenta(char tipo, bool completa = true, int pausa_ms = 0) {
    return viva.presenta({tessera, chiave, tipo, completa, pausa_ms, "x"},
                         [this](Fine come) { fini.push_back(come); });
  }
  void rispondi(const QByteArray& testo) { canale->ricevi(componi_frame(testo)); }
  /// The payloads that went out since the last call.
  QByteArrayList usciti() {
    QByteArrayList testi;
    for (const QByteArray& f : canale->presi()) {
      EXPECT_EQ(f, componi_frame(f.chopped(3)));
      testi << f.chopped(3);
    }
    return testi;
  }
  void passa(int ms) { macchina.esegui_per(std::chrono::milliseconds(ms)); }

  const QByteArray tessera = "TESSERA001";
  const QByteArray chiave = "CHIAVE0004";
  const QByteArray mostrata =
      "0009000"
      "0000000001"
      "1"
      "TESSERA001";
  const QByteArray tolta =
      "0009000"
      "0000000001"
      "0"
      "TESSERA001";
  VirtualMachine macchina;
  Registro registro;
  QByteArrayList righe;
  std::vector<Fine> fini;
  Cabinet cabinet{{QStringLiteral("127.0.0.2")}, macchina.orologio(), registro};
  SessioneViva viva{cabinet, macchina.orologio(), macchina.primo().timer};
  std::shared_ptr<FintoCanale> canale = std::make_shared<FintoCanale>();
};

TEST_F(SessioneVivaTest, ReportsWithdrawalsAndReturnsDoneOrGivenUp) {
  const struct {
    char tipo;
    bool completa;
    QByteArray verso;
    QByteArray esito;
    QByteArray cifra;
    Fine fine;
  } tabella[] = {
      {prelievo, false, "1", "02", "1", Fine::Rinunciata},
      {prelievo, true, "1", "03", "0", Fine::Fatta},
      {restituzione, false, "0", "00", "1", Fine::Rinunciata},
      {restituzione, true, "0", "01", "0", Fine::Fatta},
  };
  for (const auto& caso : tabella) {
    fini.clear();
    ASSERT_TRUE(presenta(caso.tipo, caso.completa));
    EXPECT_FALSE(presenta(caso.tipo));
    EXPECT_EQ(usciti(), QByteArrayList{mostrata});
    rispondi("00090001");
    EXPECT_EQ(usciti(), QByteArrayList{"0009100"
                                       "0000000001" +
                                       caso.verso + chiave});
    rispondi("00091001");
    EXPECT_EQ(usciti(), QByteArrayList{"000920" + chiave + "0" + caso.esito});
    rispondi("00092" + chiave + caso.cifra);
    EXPECT_EQ(usciti(), QByteArrayList{tolta});
    rispondi("00090000");
    EXPECT_EQ(fini, std::vector{caso.fine});
  }
  EXPECT_EQ(registro.voci().size(), 2U);
  EXPECT_TRUE(registro.voci()[0].risposta && registro.voci()[1].risposta);
  EXPECT_EQ(cabinet.stato().transazioni.numero(), 0);
}

TEST_F(SessioneVivaTest, ObeysARefusalOfTheCard) {
  presenta(prelievo, true, 500);
  rispondi("00090000");
  passa(500);
  EXPECT_EQ(usciti(), (QByteArrayList{mostrata, tolta}));
  rispondi("00090000");
  EXPECT_EQ(fini, std::vector{Fine::TesseraRifiutata});
  EXPECT_FALSE(cabinet.chiavi().at(chiave).fuori);
}

TEST_F(SessioneVivaTest, ObeysARefusalOfTheKey) {
  presenta(prelievo);
  rispondi("00090001");
  rispondi("00091000");
  EXPECT_EQ(usciti().last(), tolta);
  rispondi("00090000");
  EXPECT_EQ(fini, std::vector{Fine::ChiaveRifiutata});
  EXPECT_TRUE(registro.voci().empty());
}

TEST_F(SessioneVivaTest, GivesUpAnUnansweredRequestAndClosesAGrantNotHeard) {
  presenta(prelievo);
  rispondi("00090001");
  usciti();
  passa(3000);
  EXPECT_EQ(usciti(), QByteArrayList{"000920" + chiave +
                                     "0"
                                     "02"});
  rispondi("00091001");                    // too late
  canale->ricevi("0009200000000000FF\r");  // garbled
  EXPECT_TRUE(usciti().isEmpty());
  rispondi("00092" + chiave);
  EXPECT_EQ(usciti(), QByteArrayList{tolta});
  passa(3000);
  EXPECT_EQ(fini, std::vector{Fine::Muta});
  EXPECT_TRUE(righe[1].contains("00091") && righe[1].endsWith("muto\t3000000\tx")) << righe[1].data();
}

TEST_F(SessioneVivaTest, StoresAMovementThatTheConsoleDidNotTake) {
  const struct {
    const char* nome;
    std::function<void()> risposta;
    QByteArray riga;
  } tabella[] = {
      {"no answer", [this] { passa(3000); }, "muto\t"},
      {"no digit", [this] { rispondi("00092" + chiave); }, "risposto\t"},
      {"connection lost", [this] { canale->cade(); }, "muto\t"},
  };
  int memorizzati = 0;
  for (const auto& caso : tabella) {
    righe.clear();
    presenta(prelievo);
    rispondi("00090001");
    rispondi("00091001");
    caso.risposta();
    EXPECT_EQ(cabinet.stato().transazioni.numero(), ++memorizzati) << caso.nome;
    EXPECT_TRUE(righe[4].startsWith(caso.riga)) << righe[4].data();
    EXPECT_TRUE(righe[5].startsWith("memorizzato\t")) << righe[5].data();
    if (viva.viva()) rispondi("00090000");
  }
  EXPECT_EQ(fini, (std::vector{Fine::Fatta, Fine::Fatta, Fine::Fatta}));
  EXPECT_FALSE(viva.viva());
  EXPECT_FALSE(presenta(prelievo));
}

TEST_F(SessioneVivaTest, AKeyGrantedIsTakenEvenWhenTheConnectionGoes) {
  presenta(prelievo, true, 1000);
  rispondi("00090001");
  passa(1000);
  rispondi("00091001");
  canale->cade();
  EXPECT_EQ(fini, std::vector{Fine::Fatta});
  EXPECT_TRUE(cabinet.chiavi().at(chiave).fuori);
  ASSERT_EQ(registro.voci().size(), 1U);
  EXPECT_EQ(registro.voci()[0].come, Come::Memoria);
  EXPECT_EQ(cabinet.stato().transazioni.numero(), 1);
}

TEST_F(SessioneVivaTest, AConnectionLostBeforeAGrantEndsTheOperation) {
  presenta(prelievo);
  canale->cade();
  EXPECT_EQ(fini, std::vector{Fine::Caduta});
  canale = std::make_shared<FintoCanale>();
  viva.collega(canale);
  EXPECT_TRUE(presenta(prelievo));
  canale->ricevi("000900");
  canale->ricevi(componi_frame("00090001").mid(6));  // in two pieces
  EXPECT_EQ(usciti().size(), 2);
}

}  // namespace
}  // namespace lokera::simulazione
