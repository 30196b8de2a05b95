#include "simulation/cabinet/cabinet.h"

#include <gtest/gtest.h>

#include "link/protocollo.h"
#include "simulation/macchina/virtual_clock.h"

namespace lokera::simulazione {
namespace {

const QByteArray tessera = "TESSERA001";
const QByteArray chiave = "CHIAVE0007";
const QByteArray parametri_gestito = "0009501010000010A01010100000000000000";

class CabinetTest : public testing::Test {
 protected:
  CabinetTest() {
    registro.Riga = [this](const QByteArray& riga) { righe << riga; };
  }

  /// Sends payload text as a well-formed frame and cuts the outer form of the answer off again.
  QByteArray chiedi(const QByteArray& testo) { return testo_di(cabinet.comando(componi_frame(testo))); }
  QByteArray chiedi_udp(const QByteArray& testo) {
    return testo_di(cabinet.datagramma(componi_frame(testo)));
  }
  static QByteArray testo_di(const QByteArray& risposta) {
    if (risposta.isEmpty()) return {};
    EXPECT_EQ(risposta, componi_frame(risposta.chopped(3)));
    return risposta.chopped(3);
  }
  void abilita(int posizione, const QByteArray& inizio_maschera) {
    const QByteArray maschera = inizio_maschera.leftJustified(cifre_maschera, '0');
    ASSERT_EQ(chiedi("000310" + QByteArray::number(posizione).rightJustified(4, '0') + tessera + maschera),
              "0003100");
  }

  VirtualClock clock{momento(QDate(2026, 3, 1), QTime(8, 30))};  // a Sunday
  RegistroEventi registro;
  QByteArrayList righe;
  Cabinet cabinet{{u"127.0.0.2"_s, "0000001234", {100, 200, 3}}, clock, registro};
};

TEST_F(CabinetTest, AnswersEveryCommandByteForByte) {
  // Question and answer in turn. $t is a card, $m its mask, $k a key.
  const QByteArray colloquio = R"(
    00010 00010001            0001B 0001B000000001234     0001F 0001F00101032026083000
    000350 00035000000        0003000000 0003014
    0003100007$t$m 0003100    0003000007 0003000$t$m      0003110007$k 0003100    0003010007 0003000$k
    000350 00035000001        000351 00035000001
    0003200007 0003200        0003000007 0003014          0003200007 0003214      0003210007 0003200
    0003110001$k 0003100      000331 00033000001          000330 00033000000      000351 00035000000
    00039 00039000000         00036 0003614               00037 0003705
    00020130112008235958 000200                           0001F 0001F00130112008235958
    0009501010000010A01010100000000000000 0009500
    00099 0009904             00073 0007304               000A0 000A004           00010X 0001013
    0003000100 0003003        0003020000 0003003          00030000A0 0003003      000300 0003013
    0003110200$k 0003103      0003110001CHIAVE 0003113    0003100001$t$a 0003103  000352 0003503
    00020830112008235958 000203                           00020131022008235958 000203
    00020130112008245958 000203                           0002013011200823595 000203
    0009502010000010A01010100000000000000 0009503         0009501010000010901010100000000000000 0009503
    0009501010000010AFB010100000000000000 0009503         0009501010000010A01010200000000000000 0009503
    000950101 0009513)";
  const QByteArray maschera = QByteArray("81").leftJustified(cifre_maschera, '0');
  QByteArray tutto = colloquio.simplified();
  tutto.replace("$t", tessera).replace("$k", chiave).replace("$m", maschera);
  tutto.replace("$a", QByteArray(maschera).replace('8', 'a'));
  const QByteArrayList parole = tutto.split(' ');
  for (int i = 0; i < parole.size(); i += 2) EXPECT_EQ(chiedi(parole[i]), parole[i + 1]) << parole[i].data();
  EXPECT_EQ(cabinet.comando("0001032\r"), componi_frame("0001002"));  // a wrong check
  EXPECT_EQ(cabinet.comando("00020130112008235958FF\r"), componi_frame("000202"));
  for (const char* rumore : {"", "\r", "0010\r", "0003635", "\xC3\xA8\x30\x30\x31\x30\x33\x41\r"})
    EXPECT_EQ(cabinet.comando(rumore), QByteArray()) << rumore;

  chiedi("00020128022026235959");  // once set, the clock runs by itself
  clock.imposta(momento(QDate(2020, 1, 1), QTime(0, 0)));
  clock.avanza_a(clock.monotono() + std::chrono::seconds(2));
  EXPECT_EQ(chiedi("0001F"), "0001F00101032026000001");
}

TEST_F(CabinetTest, AResetTakesSettingsIntoUseAndKeepsTheRest) {
  cabinet.appendi(0, chiave);
  abilita(5, "80");
  ASSERT_TRUE(cabinet.evento(prelievo, tessera, chiave));
  chiedi("00036");
  chiedi(parametri_gestito);
  const auto scoperta = [&] { return cabinet.datagramma(componi_frame("000A0")); };
  EXPECT_EQ(chiedi_udp("000A112700000000910005255255000000127000000001"), "000A100");
  const struct {
    QByteArray indirizzo, porta, maschera = "255255000000", gateway = "127000000001";
  } fuori_limite[] = {{"127000000256", "10005"},
                      {"127000000009", "00000"},
                      {"127000000009", "65536"},
                      {"127000000009", "10002"},
                      {"224000000001", "10005"},
                      {"000000000000", "10005"},
                      {"127000000009", "10005", "255999000000"},
                      {"127000000009", "10005", "255255000000", "1270000000 1"}};
  for (const auto& f : fuori_limite)
    EXPECT_EQ(chiedi_udp("000A1" + f.indirizzo + f.porta + f.maschera + f.gateway), "000A103")
        << f.indirizzo.data() << ' ' << f.porta.data();
  EXPECT_EQ(chiedi_udp("000A112700000000980255255000000127000000001"), "000A113");
  EXPECT_EQ(chiedi_udp("00036"), "0003604");
  ASSERT_EQ(scoperta().size(), 63);
  EXPECT_EQ(scoperta().mid(19, 41), "12700000000210001255255255000000000000000");
  EXPECT_FALSE(cabinet.gestito());
  int avvisi = 0;
  cabinet.Riavvio = [&] { ++avvisi; };

  EXPECT_EQ(cabinet.datagramma(componi_frame("00073")), QByteArray());
  EXPECT_EQ(avvisi, 1);
  EXPECT_TRUE(cabinet.gestito());
  EXPECT_EQ(scoperta().mid(19, 41), "12700000000910005255255000000127000000001");
  EXPECT_EQ(chiedi("000350"), "00035000001");
  EXPECT_EQ(chiedi("00037"), "0003705");  // what was read before is forgotten
  EXPECT_EQ(chiedi("00039"), "00039000001");
}

TEST_F(CabinetTest, AnAcknowledgementDropsOnlyWhatItsConnectionHasRead) {
  cabinet.memorizza(1, {prelievo, "A", "B", clock.adesso()});
  cabinet.memorizza(2, {prelievo, "C", "D", clock.adesso()});
  SessioneCabinet una;
  SessioneCabinet altra;
  EXPECT_EQ(campo_frame(cabinet.comando(componi_frame("00036"), una), 8, 10), "A.........");
  EXPECT_EQ(cabinet.comando(componi_frame("00037"), altra), componi_frame("0003705"));
  cabinet.comando(componi_frame("00036"), altra);
  EXPECT_EQ(cabinet.comando(componi_frame("00037"), altra), componi_frame("0003700"));
  EXPECT_EQ(cabinet.comando(componi_frame("00037"), una), componi_frame("0003705"));
  EXPECT_EQ(cabinet.stato().transazioni.numero(), 1);
}

TEST_F(CabinetTest, DecidesByItsOwnRecordsUntilItsStoreIsFull) {
  cabinet.appendi(7, chiave);
  cabinet.appendi(8, "CHIAVE0008");
  cabinet.appendi(12, "CHIAVE0012", false);
  EXPECT_FALSE(cabinet.evento(prelievo, tessera, chiave));  // no record of the card
  abilita(3, "0188");
  EXPECT_FALSE(cabinet.evento(prelievo, tessera, "CHIAVE0012"));  // no record of the key
  EXPECT_FALSE(cabinet.evento(prelievo, tessera, "ALTROVE000"));
  EXPECT_FALSE(cabinet.evento(restituzione, tessera, chiave));
  EXPECT_TRUE(cabinet.evento(prelievo, tessera, chiave));
  EXPECT_FALSE(cabinet.evento(prelievo, tessera, chiave));
  EXPECT_EQ(cabinet.chiavi().at(chiave).chi, tessera);
  chiedi("0003200003");
  EXPECT_FALSE(cabinet.evento(prelievo, tessera, "CHIAVE0008"));
  EXPECT_TRUE(cabinet.evento(restituzione, tessera, chiave));
  EXPECT_EQ(righe.last().split('\t')[0], "evento");
  EXPECT_EQ(righe.first(),
            "rifiuto\t-\t2026-03-01 08:30:00\t127.0.0.2\tP\tTESSERA001\tCHIAVE0007\tnon abilitata");
  abilita(3, "01");
  EXPECT_TRUE(cabinet.evento(prelievo, tessera, chiave));
  EXPECT_FALSE(cabinet.evento(restituzione, tessera, chiave));  // the store holds three
  EXPECT_TRUE(cabinet.chiavi().at(chiave).fuori);
  EXPECT_TRUE(righe.last().endsWith("memoria piena"));
}

}  // namespace
}  // namespace lokera::simulazione
