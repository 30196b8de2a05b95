#include "simulation/cabinet/cabinet_server.h"

#include <gtest/gtest.h>

#include "link/protocollo.h"
#include "simulation/cabinet/finta_rete.h"
#include "simulation/macchina/virtual_machine.h"

namespace lokera::simulazione {
namespace {

using prova::FintaRete;

class CabinetServerTest : public testing::Test {
 protected:
  CabinetServer& apri(const Comportamento& comportamento = {}) {
    server = std::make_unique<CabinetServer>(cabinet, rete, macchina.orologio(), macchina.primo().timer,
                                             comportamento);
    EXPECT_TRUE(server->apri());
    return *server;
  }
  void passa(int ms) { macchina.esegui_per(std::chrono::milliseconds(ms)); }

  const QString casa = u"127.0.0.2"_s;
  const QByteArray prova = componi_frame("00010");
  const QByteArray bene = componi_frame("00010001");
  VirtualMachine macchina;
  FintaRete rete;
  RegistroEventi registro;
  Cabinet cabinet{{casa}, macchina.orologio(), registro};
  std::unique_ptr<CabinetServer> server;
};

TEST_F(CabinetServerTest, PutsPiecesTogetherAndAnswersJoinedFramesInTurn) {
  apri();
  const auto canale = rete.chiama(casa, 10001);
  canale->ricevi("000");
  canale->ricevi("1031");
  EXPECT_TRUE(canale->mandati.isEmpty());
  canale->ricevi("\r0003");
  EXPECT_EQ(canale->presi(), QByteArrayList{bene});
  canale->ricevi("93A\r" + prova + "00");
  EXPECT_EQ(canale->presi(), (QByteArrayList{componi_frame("00039000000"), bene}));
  canale->ricevi(QByteArray(2000, 'x'));
  canale->ricevi(prova);
  EXPECT_EQ(canale->presi(), QByteArrayList{bene});
}

TEST_F(CabinetServerTest, MisbehavesAsTold) {
  const struct {
    const char* nome;
    Comportamento comportamento;
    QByteArrayList subito;
    QByteArrayList dopo;
    bool aperto;
  } tabella[] = {
      {"refused", {.rifiuta = 1000}, {}, {}, false},
      {"dropped", {.cade = 1000}, {bene.first(5)}, {bene.first(5)}, false},
      {"late", {.ritarda = 1000, .ritardo_ms = 4000}, {}, {bene}, true},
      {"split", {.spezza = 1000}, {bene.first(5)}, {bene.first(5), bene.sliced(5)}, true},
      {"slow", {.lento_ms = 2000}, {}, {bene, componi_frame("00039000000")}, true},
  };
  for (const auto& caso : tabella) {
    SCOPED_TRACE(caso.nome);
    server.reset();
    apri(caso.comportamento);
    const auto canale = rete.chiama(casa, 10001);
    if (canale->aperto()) canale->ricevi(prova);
    EXPECT_EQ(canale->mandati, caso.subito);
    passa(1500);
    if (caso.comportamento.lento_ms > 0) canale->ricevi("000393A\r");
    passa(2500);
    EXPECT_EQ(canale->mandati, caso.dopo);
    EXPECT_EQ(canale->aperto(), caso.aperto);
  }
}

TEST_F(CabinetServerTest, AsksTheConsoleOnlyWhenManagedAndConnected) {
  apri();
  cabinet.appendi(0, "CHIAVE0000");
  std::vector<Fine> fini;
  const auto chiedi = [&] {
    return server->richiedi({"TESSERA001", "CHIAVE0000", prelievo, true, 0, {}},
                            [&](Fine fine) { fini.push_back(fine); });
  };
  auto viva = rete.chiama(casa, 10002);
  EXPECT_TRUE(chiedi());  // not managed: refused by its own records
  EXPECT_TRUE(viva->mandati.isEmpty());
  cabinet.imposta_gestito(true);
  EXPECT_TRUE(chiedi());
  EXPECT_EQ(viva->presi().size(), 1);
  EXPECT_FALSE(chiedi());
  const auto nuova = rete.chiama(casa, 10002);  // the newest connection counts
  EXPECT_FALSE(viva->aperto());
  EXPECT_TRUE(chiedi());
  EXPECT_EQ(nuova->presi().size(), 1);
  nuova->cade();
  EXPECT_TRUE(chiedi());
  EXPECT_EQ(fini, (std::vector{Fine::chiave_rifiutata, Fine::caduta, Fine::caduta, Fine::chiave_rifiutata}));
}

}  // namespace
}  // namespace lokera::simulazione
