#include <gtest/gtest.h>

#include "adapters/banco_reale.h"

namespace lokera {
namespace {

TEST(QtWinsock, a_handler_that_waits_gets_the_next_data_of_its_own_socket) {
  BancoReale banco(u"127.0.0.11"_s);
  ASSERT_TRUE(banco.ascolta(24001) && banco.connetti(24001));
  int profondo = 0;
  banco.socket->DataArrival = [&](qsizetype byte) {
    banco.arrivi.append(banco.socket->GetData());
    EXPECT_EQ(byte, banco.arrivi.last().size());
    if (++profondo == 5) return;
    const auto attesi = banco.arrivi.size() + 1;
    banco.socket->SendData(QByteArray::number(profondo));
    EXPECT_TRUE(banco.arrivati(attesi));
  };
  banco.socket->SendData("0");
  EXPECT_TRUE(banco.arrivati(5));
  EXPECT_EQ(banco.arrivi, (QByteArrayList{"0", "1", "2", "3", "4"}));
}

TEST(QtWinsock, refused_and_closed_connections_are_told_by_the_state_alone) {
  BancoReale banco(u"127.0.0.12"_s);
  banco.socket->Connect(banco.host, 24002);  // nobody listens
  EXPECT_TRUE(banco.attesa.attendi(5, [&] { return banco.socket->State() == socket_chiuso; }));
  banco.socket->SendData("x");  // dropped
  for (const auto& nessuno : {u"0.0.0.0"_qs, u"999.0.0.9"_qs, u"localhost"_qs}) {
    banco.socket->Connect(nessuno, 24002);
    EXPECT_EQ(banco.socket->State(), socket_chiuso) << nessuno.toStdString();
  }

  ASSERT_TRUE(banco.ascolta(24002));
  banco.socket->Connect(banco.host, 24002);
  banco.socket->Close();  // before it is connected
  EXPECT_EQ(banco.socket->State(), socket_chiuso);
  banco.attesa.attendi_oltre(0);
  EXPECT_EQ(banco.socket->State(), socket_chiuso);

  banco.canale.reset();
  ASSERT_TRUE(banco.connetti(24002));
  banco.socket->SendData("y");
  EXPECT_TRUE(banco.arrivati(1));
  banco.socket->Close();
  EXPECT_EQ(banco.socket->State(), socket_chiuso);
  EXPECT_TRUE(banco.attesa.attendi(5, [&] { return banco.cadute > 0; }));
  EXPECT_EQ(banco.arrivi, QByteArrayList{"y"});
}

TEST(QtWinsock, what_came_before_the_connection_was_lost_is_still_delivered) {
  BancoReale banco(u"127.0.0.13"_s);
  ASSERT_TRUE(banco.ascolta(24003) && banco.connetti(24003));
  banco.canale->Arrivo = [&](QByteArrayView) {
    banco.canale->invia("last words");
    banco.rete.smetti(banco.host);
    banco.canale.reset();  // inside its own handler
  };
  banco.socket->SendData("x");
  EXPECT_TRUE(banco.attesa.attendi(5, [&] { return banco.socket->State() != socket_connesso; }));
  EXPECT_TRUE(banco.arrivati(1));
  EXPECT_EQ(banco.arrivi.join(), "last words");
  EXPECT_EQ(banco.cadute, 0);
  ASSERT_TRUE(banco.ascolta(24003));  // the address is free again
}

TEST(QtWinsock, what_was_not_fetched_is_gone_with_Close_and_announced_to_nobody) {
  BancoReale banco(u"127.0.0.14"_s);
  ASSERT_TRUE(banco.ascolta(24004) && banco.connetti(24004));
  int annunci = 0;
  banco.socket->DataArrival = [&](qsizetype) {
    if (++annunci == 1) banco.socket->Close();  // without fetching
  };
  banco.socket->SendData("x");
  EXPECT_TRUE(banco.attesa.attendi(5, [&] { return annunci > 0; }));
  banco.attesa.attendi_oltre(0);
  EXPECT_EQ(annunci, 1);
  EXPECT_TRUE(banco.socket->GetData().isEmpty());
}

}  // namespace
}  // namespace lokera
