#include <QCoreApplication>
#include <QProcess>

#include <gtest/gtest.h>

#include "adapters/banco_reale.h"

namespace lokera {
namespace {

// Runs this very test again in a network of its own, with an interface that leads nowhere as the way out. Not
// every kernel has both kinds.
const QString in_rete_propria =
    u"ip link set lo up && { ip link add finta type dummy 2>/dev/null || "
    "{ ip link add finta type veth peer name altra && ip link set altra up; }; } && ip addr add 10.99.0.1/24 "
    "dev finta && ip link set finta up && ip route add default dev finta && LOKERA_OWN_NETWORK=1 "
    "exec \"$0\" --gtest_filter=Broadcast.reaches_every_cabinet_of_the_network"_s;

int in_rete(const QString& opzioni, const QStringList& programma) {
  return QProcess::execute(u"unshare"_s, QStringList{opzioni} + programma);
}

void cerca_tutti() {
  BancoReale banco({});
  RealRete rete(true);
  for (const auto& host : {u"127.0.0.2"_qs, u"127.0.0.3"_qs}) {
    ASSERT_TRUE(rete.ascolta_udp(host, 3040, [host](QByteArrayView dati, const auto& rispondi) {
      EXPECT_EQ(dati.toByteArray(), "000A0");
      rispondi(host.toLatin1());
    }));
  }
  banco.socket->Protocol(Protocol::udp);
  banco.socket->RemoteHost(u"255.255.255.255"_s);
  banco.socket->RemotePort(3040);
  banco.socket->SendData("000A0");
  EXPECT_TRUE(banco.arrivati(2));
  std::sort(banco.arrivi.begin(), banco.arrivi.end());
  EXPECT_EQ(banco.arrivi, (QByteArrayList{"127.0.0.2", "127.0.0.3"}));
}

TEST(Broadcast, reaches_every_cabinet_of_the_network) {
  if (qEnvironmentVariableIsSet("LOKERA_OWN_NETWORK")) return cerca_tutti();
  for (const auto& opzioni : {u"-n"_qs, u"-rn"_qs}) {
    if (in_rete(opzioni, {u"true"_qs}) != 0) continue;
    EXPECT_EQ(
        in_rete(opzioni, {u"sh"_qs, u"-c"_qs, in_rete_propria, QCoreApplication::applicationFilePath()}), 0);
    return;
  }
  GTEST_SKIP() << "a network namespace can't be made here (unshare -n): broadcast not tested";
}

}  // namespace
}  // namespace lokera
