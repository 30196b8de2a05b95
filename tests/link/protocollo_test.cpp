#include "link/protocollo.h"

#include <gtest/gtest.h>

namespace lokera {
namespace {

using namespace Qt::StringLiterals;

TEST(Protocollo, BloccoDiControllo) {
  const std::pair<QByteArray, QByteArray> casi[] = {{"00010", "31"}, {"A", "41"},
                                                    {"AA", "00"},    {"AD", "05"},
                                                    {"", "00"},      {QByteArray(33, 'x') + "y", "01"}};
  for (const auto& [testo, bcc] : casi) EXPECT_EQ(calcola_bcc(testo), bcc) << testo.toStdString();
  EXPECT_EQ(componi_frame("00036"), QByteArray(frame_leggi_transazione));
  EXPECT_EQ(componi_frame("00037"), QByteArray(frame_conferma_transazione));
  EXPECT_EQ(componi_frame("00039"), QByteArray(frame_conta_transazioni));
}

TEST(Protocollo, CampiDiUnFrameCorto) {
  EXPECT_EQ(campo_frame("0003600", 6, 2), "00");
  EXPECT_EQ(campo_frame("0003600", 7, 10), "0");
  for (const auto& [inizio, lungo] : {std::pair(8, 1), {3, -2}})
    EXPECT_TRUE(campo_frame("0003600", inizio, lungo).isEmpty()) << inizio;
  EXPECT_TRUE(campo_frame("", 1, 5).isEmpty());
  EXPECT_FALSE(risposta_buona("000360"));
}

TEST(Protocollo, IndirizzoSenzaZeri) {
  EXPECT_EQ(normalizza_ip(u"010.001.002.003"_s), u"10.1.2.3"_s);
  EXPECT_EQ(normalizza_ip(u"192.168.015.250"_s), u"192.168.15.250"_s);
}

}  // namespace
}  // namespace lokera
