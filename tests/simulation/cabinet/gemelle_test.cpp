#include <gtest/gtest.h>

#include "link/protocollo.h"
#include "simulation/cabinet/cabinet_server.h"
#include "simulation/macchina/virtual_machine.h"

namespace lokera::simulazione {
namespace {

using namespace std::chrono_literals;

/// Two cabinets out of their boxes on one network, and a console's sockets.
class Gemelle : public testing::Test {
 protected:
  Gemelle() {
    udp->Protocol(Protocol::udp);
    udp->RemotePort(porta_udp);
    udp->DataArrival = [this](qsizetype) { arrivi << udp->GetData().chopped(3); };
    tcp->DataArrival = [this](qsizetype) { arrivi << tcp->GetData().chopped(3); };
    EXPECT_TRUE(prima.apri() && seconda.apri());
  }
  ~Gemelle() override { udp->DataArrival = tcp->DataArrival = nullptr; }
  Q_DISABLE_COPY_MOVE(Gemelle)

  QByteArrayList manda(const QByteArray& testo, const QString& a = u"255.255.255.255"_s) {
    arrivi.clear();
    udp->RemoteHost(a);
    udp->SendData(componi_frame(testo));
    macchina.esegui_per(1s);
    return arrivi;
  }
  /// The serial number of who has the command port of the address; empty when nobody has.
  QByteArray chi(const QString& indirizzo) {
    arrivi.clear();
    tcp->Connect(indirizzo, 10001);
    macchina.esegui_per(1s);
    tcp->SendData(componi_frame("0001B"));
    macchina.esegui_per(1s);
    tcp->Close();
    return arrivi.value(0).mid(7);
  }

  const QString casa = u"192.168.15.200"_s;
  const QString nuova = u"192.168.15.7"_s;
  const QByteArray sposta = "000A119216801500710001255255255000000000000000";
  VirtualMachine macchina;
  RegistroEventi registro;
  Cabinet cabinet_a{Cabinet::di_fabbrica("0000000001"), macchina.orologio(), registro};
  Cabinet cabinet_b{Cabinet::di_fabbrica("0000000002"), macchina.orologio(), registro};
  CabinetServer prima{cabinet_a, macchina.rete(), macchina.orologio(), macchina.primo().timer};
  CabinetServer seconda{cabinet_b, macchina.rete(), macchina.orologio(), macchina.primo().timer};
  std::unique_ptr<Winsock> udp = macchina.macchina().socket.crea_winsock();
  std::unique_ptr<Winsock> tcp = macchina.macchina().socket.crea_winsock();
  QByteArrayList arrivi;
};

TEST_F(Gemelle, BothHearABroadcastAndTheFirstAloneHasTheAddress) {
  EXPECT_EQ(manda("000A0").size(), 2);
  EXPECT_EQ(manda("000A0", casa).size(), 1);
  EXPECT_EQ(chi(casa), "0000000001");
  prima.chiudi();
  EXPECT_EQ(manda("000A0").size(), 1);
  EXPECT_EQ(chi(casa), "");  // the other opens the ports at its next start
  manda("00073");
  EXPECT_EQ(chi(casa), "0000000002");
  tcp->Connect(casa, 10001);
  macchina.esegui_per(1s);
  ASSERT_TRUE(prima.apri());
  prima.chiudi();  // ends nothing of the other's
  macchina.esegui_per(1s);
  EXPECT_EQ(tcp->State(), socket_connesso);
  EXPECT_EQ(manda("000A0", casa).size(), 1);
}

TEST_F(Gemelle, SettingsAreTakenByEveryCabinetThatIsOn) {
  EXPECT_EQ(manda(sposta), QByteArrayList(2, "000A100"));
  manda("00073");
  EXPECT_EQ(cabinet_a.riavvii() + cabinet_b.riavvii(), 2);
  EXPECT_EQ(manda("000A0").size(), 2);
  EXPECT_EQ(manda("000A0", nuova).size(), 1);  // twins still, elsewhere
  EXPECT_NE(prima.completo(), seconda.completo());
}

TEST_F(Gemelle, OneAtATimeTheyGetAddressesOfTheirOwn) {
  seconda.chiudi();
  EXPECT_EQ(manda(sposta).size(), 1);
  manda("00073");
  ASSERT_TRUE(seconda.apri());
  EXPECT_EQ(chi(nuova), "0000000001");
  EXPECT_EQ(chi(casa), "0000000002");
  prima.chiudi();
  manda("000A119216801500810001255255255000000000000000");
  seconda.chiudi();
  ASSERT_TRUE(prima.apri() && seconda.apri());  // who was off comes up under what it has stored
  EXPECT_EQ(chi(nuova), "0000000001");
  EXPECT_EQ(chi(u"192.168.15.8"_s), "0000000002");
}

}  // namespace
}  // namespace lokera::simulazione
