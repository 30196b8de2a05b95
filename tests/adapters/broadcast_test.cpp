#include <QCoreApplication>
#include <QProcess>

#include <gtest/gtest.h>

#include "adapters/banco_reale.h"
#include "link/protocollo.h"
#include "simulation/cabinet/cabinet_server.h"
#include "simulation/servizio/rete_propria.h"

namespace lokera {
namespace {

using namespace simulazione;

constexpr int rete_negata = 77;

/// A console's socket and cabinets that hear what it sends to all.
struct BancoBroadcast : BancoReale {
  BancoBroadcast() : BancoReale({}) {
    socket->Protocol(Protocol::udp);
    socket->RemotePort(porta_udp);
  }
  QByteArrayList manda(const QByteArray& dati, const QString& a, qsizetype quanti) {
    arrivi.clear();
    socket->RemoteHost(a);
    socket->SendData(dati);
    EXPECT_TRUE(arrivati(quanti)) << dati.data();
    std::sort(arrivi.begin(), arrivi.end());
    return arrivi;
  }
  RealRete tutti{true};
};

void cerca_tutti() {
  BancoBroadcast banco;
  for (const auto& host : {u"127.0.0.2"_qs, u"127.0.0.3"_qs}) {
    ASSERT_TRUE(banco.tutti.ascolta_udp(host, porta_udp, [host](QByteArrayView dati, const auto& rispondi) {
      EXPECT_EQ(dati.toByteArray(), "000A0");
      rispondi(host.toLatin1());
    }));
  }
  EXPECT_EQ(banco.manda("000A0", u"255.255.255.255"_s, 2), (QByteArrayList{"127.0.0.2", "127.0.0.3"}));
}

// A third answer to a datagram would have come with the second.
void cerca_gemelle() {
  BancoBroadcast banco;
  const QString casa = u"127.0.0.200"_s;
  const QByteArray cerca = componi_frame("000A0");
  RegistroEventi registro;
  Cabinet cabinet_a(Cabinet::di_fabbrica("0000000001", casa), banco.pc.orologio, registro);
  Cabinet cabinet_b(Cabinet::di_fabbrica("0000000002", casa), banco.pc.orologio, registro);
  CabinetServer prima(cabinet_a, banco.tutti, banco.pc.orologio, banco.pc.timer);
  CabinetServer seconda(cabinet_b, banco.tutti, banco.pc.orologio, banco.pc.timer);
  ASSERT_TRUE(prima.apri() && seconda.apri());
  EXPECT_TRUE(prima.completo() && !seconda.completo());
  const QByteArrayList tutte = banco.manda(cerca, u"255.255.255.255"_s, 2);
  EXPECT_NE(tutte.value(0), tutte.value(1));
  EXPECT_EQ(banco.manda(cerca, casa, 1), QByteArrayList{tutte.value(0)});

  prima.chiudi();
  banco.socket->SendData(componi_frame("00073"));  // to the address: the other doesn't hear it
  banco.manda(cerca, u"255.255.255.255"_s, 1);
  EXPECT_EQ(cabinet_b.riavvii(), 0);
  banco.manda(componi_frame("00073"), u"255.255.255.255"_s, 0);
  EXPECT_TRUE(banco.attesa.attendi(5, [&] { return seconda.completo(); }));
  EXPECT_EQ(banco.manda(cerca, casa, 1), QByteArrayList{tutte.value(1)});
}

TEST(Broadcast, reaches_every_cabinet_of_the_network_twins_too) {
  if (qEnvironmentVariableIsSet("LOKERA_OWN_NETWORK")) {
    EXPECT_EQ(via_verso_altri(), QString());
    cerca_tutti();
    cerca_gemelle();
    return;
  }
  QProcess in_rete;
  in_rete.setProcessChannelMode(QProcess::ForwardedOutputChannel);
  in_rete.start(QString::fromUtf8(LOKERA_RETE_PROPRIA),
                {u"env"_s, u"LOKERA_OWN_NETWORK=1"_s, QCoreApplication::applicationFilePath(),
                 u"--gtest_filter=Broadcast.*"_s});
  ASSERT_TRUE(in_rete.waitForFinished(60'000));
  const std::string detto = in_rete.readAllStandardError().toStdString();
  if (in_rete.exitCode() == rete_negata) GTEST_SKIP() << detto;
  EXPECT_TRUE(in_rete.exitStatus() == QProcess::NormalExit && in_rete.exitCode() == 0) << detto;
}

}  // namespace
}  // namespace lokera
