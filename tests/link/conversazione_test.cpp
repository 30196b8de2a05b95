#include "link/conversazione.h"

#include <gtest/gtest.h>

#include "link/porte.h"
#include "link/protocollo.h"
#include "platform/letterali.h"
#include "simulation/macchina/virtual_machine.h"

namespace lokera {
namespace {

using namespace simulazione;
using namespace std::chrono_literals;

class ConversazioneTest : public ::testing::Test {
 protected:
  /// How long it takes.
  Monotonic durata(const std::function<void()>& che_cosa) {
    const Monotonic inizio = vm.orologio().monotono();
    che_cosa();
    return vm.orologio().monotono() - inizio;
  }

  /// A cabinet whose answers to a datagram come after those times.
  void risponde_udp(const QString& indirizzo, const QList<std::pair<Monotonic, QByteArray>>& risposte) {
    vm.rete().ascolta_udp(
        indirizzo, porta_datagrammi, [this, risposte](QByteArrayView, const auto& rispondi) {
          for (const auto& [quando, testo] : risposte)
            vm.ciclo().fra(quando, [rispondi, frame = componi_frame(testo)] { rispondi(frame); });
        });
  }

  VirtualMachine vm;
  PolledWait attesa{vm.orologio(), vm.ciclo()};
  Machine macchina = vm.macchina();
  Conversazione c{macchina.socket, attesa};
};

TEST_F(ConversazioneTest, SiConnetteEntroIlLimite) {
  EXPECT_GE(durata([&] { EXPECT_FALSE(c.connetti(u"127.0.0.3"_s, 10001, 2)); }), 2s);
  vm.ciclo().fra(100ms, [&] { c.prendi(); });
  EXPECT_LT(durata([&] { EXPECT_FALSE(c.connetti(u"127.0.0.3"_s, 10001, 2)); }), 1s) << "taken by another";
}

TEST_F(ConversazioneTest, UnaRicercaRaccoglieFinoAllaFine) {
  risponde_udp(u"127.0.0.2"_s, {{1s, "000A0uno"}, {4s, "000A0due"}, {9s, "000A0tardi"}});
  risponde_udp(u"127.0.0.3"_s, {{0s, "000A0tre"}, {2s, "000A100"}});
  c.rivolgi(u"255.255.255.255"_s, porta_datagrammi);
  QList<QByteArray> venute;
  const auto raccogli = [&](const QByteArray& frame) { venute << frame.mid(5, 3); };
  EXPECT_GE(durata([&] { EXPECT_TRUE(c.raccogli(componi_frame("000A0"), 5, 10, raccogli)); }), 5s);
  EXPECT_EQ(venute, (QList<QByteArray>{"tre", "uno", "due"}));
  const Esito<QByteArray> prima = c.chiedi(componi_frame("000A1"), 2);
  EXPECT_TRUE(!prima.fallito() && risposta_buona(*prima)) << "the same socket waits for one answer too";
  vm.ciclo().fra(100ms, [&] { c.prendi(); });
  EXPECT_LT(durata([&] { EXPECT_FALSE(c.raccogli(componi_frame("000A0"), 5, 10, raccogli)); }), 1s);
}

}  // namespace
}  // namespace lokera
