#include "simulation/cabinet/sessione_viva.h"

#include <gtest/gtest.h>

#include "link/protocollo.h"
#include "simulation/cabinet/finta_rete.h"
#include "simulation/macchina/virtual_machine.h"

namespace lokera::simulazione {
namespace {

/// The words of the scripts: ">" what has to go out next, "<" an answer, "=" bytes as they are.
const QByteArray frasi = R"(
    >shown 000900000000000011TESSERA001    >gone 000900000000000010TESSERA001
    >takes 000910000000000011CHIAVE0004    >brings 000910000000000010CHIAVE0004
    >taken 000920CHIAVE0004003             >left 000920CHIAVE0004002
    >brought 000920CHIAVE0004001           >kept 000920CHIAVE0004000
    <card1 00090001    <card0 00090000     <key1 00091001    <key0 00091000
    <end0 00092CHIAVE00040                 <end1 00092CHIAVE00041    <end- 00092CHIAVE0004
    =half 000900       =garbled 0009200000000000FF)";

QByteArray frase(const QByteArray& parola) {
  if (parola == "=rest") return componi_frame("00090001").mid(6);
  const QByteArrayList parole = frasi.simplified().split(' ');
  return parole.value(parole.indexOf(parola) + 1) + (parola == "=garbled" ? "\r" : "");
}

/// One operation; "." in its script lets so many milliseconds pass, "!" is the loss of the connection.
struct Copia {
  QByteArray passi;
  Fine come;
  QByteArray chi;      ///< who has the key afterwards
  QByteArray verbi{};  ///< the ledger's lines, by their first letters; unless empty
  bool completa = true;
  int pausa = 0;
};

class SessioneVivaTest : public testing::Test {
 protected:
  void vivi(const Copia& c) {
    SCOPED_TRACE(c.passi.data());
    righe.clear();
    canale = std::make_shared<prova::FintoCanale>();
    viva.collega(canale);
    std::vector<Fine> fini;
    const char tipo = c.passi.contains(">br") || c.passi.contains(">kept") ? restituzione : prelievo;
    const Richiesta richiesta{"TESSERA001", "CHIAVE0004", tipo, c.completa, c.pausa, "x"};
    ASSERT_TRUE(viva.presenta(richiesta, [&](Fine come) { fini.push_back(come); }));
    EXPECT_FALSE(viva.presenta(richiesta, {}));
    for (const QByteArray& p : c.passi.split(' ')) passo(p);
    EXPECT_TRUE(canale->mandati.isEmpty());
    EXPECT_EQ(fini, std::vector{c.come});
    EXPECT_EQ(cabinet.chiavi().at("CHIAVE0004").chi, c.chi);
    QByteArray verbi;
    for (const QByteArray& r : righe) verbi += r.left(2) + ' ';
    EXPECT_TRUE(c.verbi.isEmpty() || verbi.trimmed() == c.verbi) << verbi.data();
  }
  void passo(const QByteArray& p) {
    if (p[0] == '.') return macchina.esegui_per(std::chrono::milliseconds(p.mid(1).toInt()));
    if (p[0] == '!') return canale->cade();
    const QByteArray testo = frase(p);
    if (p[0] == '=') return canale->ricevi(testo);
    if (p[0] == '<') return canale->ricevi(componi_frame(testo));
    ASSERT_FALSE(canale->mandati.isEmpty()) << p.data();
    EXPECT_EQ(canale->mandati.takeFirst(), componi_frame(testo)) << p.data();
  }

  VirtualMachine macchina;
  RegistroEventi registro;
  QByteArrayList righe;
  Cabinet cabinet{{u"127.0.0.2"_s}, macchina.orologio(), registro};
  SessioneViva viva{cabinet, macchina.orologio(), macchina.primo().timer};
  std::shared_ptr<prova::FintoCanale> canale;
};

TEST_F(SessioneVivaTest, ReportsWhatIsDoneObeysRefusalsAndStoresWhatTheConsoleMissed) {
  registro.Riga = [this](const QByteArray& riga) { righe << riga; };
  cabinet.appendi(4, "CHIAVE0004");
  const QByteArray T = "TESSERA001";
  const Copia copie[] = {
      {">shown <card1 >takes <key1 >left <end1 >gone <card0", Fine::rinunciata, "", "", false},
      {">shown <card1 >takes <key1 >taken <end0 >gone <card0", Fine::fatta, T, "ri ri ev ri ri ri"},
      {">shown <card1 >brings <key1 >kept <end1 >gone <card0", Fine::rinunciata, T, "", false},
      {">shown <card1 >brings <key1 >brought <end0 >gone <card0", Fine::fatta, ""},
      {">shown <card0 .500 >gone <card0", Fine::tessera_rifiutata, "", "", true, 500},
      {">shown <card1 >takes <key0 >gone <card0", Fine::chiave_rifiutata, ""},
      // no answer to the request; one that is late or garbled is none
      {">shown <card1 >takes .3000 >left <key1 =garbled <end- >gone .3000", Fine::muta, ""},
      // the report without an answer, without its digit, cut off
      {">shown <card1 >takes <key1 >taken .3000 >gone <card0", Fine::fatta, T, "ri ri ev ri mu me ri"},
      {">shown <card1 >takes <key1 >taken <end- >gone <card0", Fine::fatta, T, "ri ri ev ri ri me ri"},
      {">shown <card1 >brings <key1 >brought !", Fine::fatta, "", "ri ri ev ri mu me"},
      // cut off before the grant, and while the person's hand is at the key
      {">shown =half =rest >takes !", Fine::caduta, ""},
      {">shown <card1 .1000 >takes <key1 !", Fine::fatta, T, "ri ri ev", true, 1000},
  };
  for (const Copia& c : copie) vivi(c);
  ASSERT_EQ(registro.voci().size(), 6U);
  for (const VoceRegistro& v : registro.voci()) EXPECT_EQ(v.risposta, v.n <= 2) << v.n;
  EXPECT_EQ(registro.voci().back().come, Come::memoria);
  EXPECT_EQ(cabinet.stato().transazioni.numero(), 4);
  EXPECT_FALSE(viva.viva() || viva.presenta({}, {}));
}

}  // namespace
}  // namespace lokera::simulazione
