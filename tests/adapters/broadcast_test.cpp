#include <QCoreApplication>
#include <QProcess>

#include <gtest/gtest.h>

#include "adapters/banco_reale.h"

namespace lokera {
namespace {

constexpr auto segno = "LOKERA_OWN_NETWORK";

// Runs this very test again in a network of its own, with an interface that leads nowhere as the way out. Not
// every kernel has both kinds.
const QString in_rete_propria = QStringLiteral(
    "ip link set lo up && { ip link add finta type dummy 2>/dev/null || "
    "{ ip link add finta type veth peer name altra && ip link set altra up; }; } && ip addr add 10.99.0.1/24 "
    "dev finta && "
    "ip link set finta up && ip route add default dev finta && "
    "exec \"$0\" --gtest_filter=Broadcast.reaches_every_cabinet_of_the_network");

int ripeti_dentro(const QString& opzioni) {
  QProcess processo;
  QProcessEnvironment ambiente = QProcessEnvironment::systemEnvironment();
  ambiente.insert(QString::fromLatin1(segno), QStringLiteral("1"));
  processo.setProcessEnvironment(ambiente);
  processo.setProcessChannelMode(QProcess::ForwardedChannels);
  processo.start(QStringLiteral("unshare"), {opzioni, QStringLiteral("sh"), QStringLiteral("-c"),
                                             in_rete_propria, QCoreApplication::applicationFilePath()});
  return processo.waitForFinished(60'000) ? processo.exitCode() : -1;
}

bool permesso(const QString& opzioni) {
  return QProcess::execute(QStringLiteral("unshare"), {opzioni, QStringLiteral("true")}) == 0;
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
  banco.socket->RemoteHost(QStringLiteral("255.255.255.255"));
  banco.socket->RemotePort(3040);
  banco.socket->SendData("000A0");
  EXPECT_TRUE(banco.arrivati(2));
  std::sort(banco.arrivi.begin(), banco.arrivi.end());
  EXPECT_EQ(banco.arrivi, (QByteArrayList{"127.0.0.2", "127.0.0.3"}));
}

TEST(Broadcast, reaches_every_cabinet_of_the_network) {
  if (qEnvironmentVariableIsSet(segno)) return cerca_tutti();
  for (const auto& opzioni : {u"-n"_qs, u"-rn"_qs}) {
    if (permesso(opzioni)) {
      EXPECT_EQ(ripeti_dentro(opzioni), 0);
      return;
    }
  }
  GTEST_SKIP() << "a network namespace can't be made here (unshare -n): broadcast not tested";
}

}  // namespace
}  // namespace lokera
