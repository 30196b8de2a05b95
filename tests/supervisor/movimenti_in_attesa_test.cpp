#include "ledger/movimenti_in_attesa.h"

#include "aiuti/banco.h"

namespace lokera::prova {
namespace {

using namespace Qt::StringLiterals;

/// A managed cabinet, and another console that holds the file's lock for a while.
class MovimentiInAttesaTest : public ::testing::Test, protected BancoLive {
 protected:
  MovimentiInAttesaTest() {
    b.lokera(1, 1);
    b.tessera(u"0000000001"_s, 1, 1);
    b.abilita(u"0000000001"_s, 5);
    for (int i = 1; i <= 4; ++i) b.chiave(u"100000000%1"_s.arg(i), 1, i - 1, 5);
    b.main().Form_Load();
    EXPECT_FALSE(altra.Open(b.file(), password_database()).fallito());
  }
  QByteArray tessera() { return BancoLive::tessera("0000000001"); }
  /// A whole withdrawal ('1') or return ('0'); what its end is answered.
  QByteArray muove(char verso, const QByteArray& codice) {
    chiave(codice, verso);
    return esito(verso == '1' ? "03" : "01").mid(5);
  }
  void blocca() { esegui(altra, u"begin immediate"_s); }
  void libera() { esegui(altra, u"rollback"_s); }
  QStringList registrati() {
    return b.righe(u"select operazione, operatore, chiave, data from movimenti order by id"_s);
  }
  QString errore() { return b.main().lblErrore.Caption(); }
  Colore lampada(int n) { return b.parti().tabellone.lampade_chiave(n).FillColor(); }

  Connection altra;
};

TEST_F(MovimentiInAttesaTest, CioCheNonSiRegistraOraSiRegistraPoiConIlSuoMomento) {
  tessera();
  const QString momento = b.vm.orologio().adesso().toString(u"yyyy-MM-dd HH:mm:ss"_s);
  blocca();
  EXPECT_EQ(muove('1', "1000000001"), "ABCDEFGHIJ");
  EXPECT_EQ(lampada(1), b.parti().tabellone.keyP.FillColor());
  EXPECT_TRUE(errore().contains(u"movimenti da registrare: 1 "_s)) << errore().toStdString();
  EXPECT_EQ(muove('0', "1000000002"), "ABCDEFGHIJ");
  EXPECT_TRUE(errore().contains(u"movimenti da registrare: 2 "_s)) << errore().toStdString();
  b.vm.esegui_per(2s);
  EXPECT_EQ(registrati(), QStringList{});
  libera();
  b.vm.esegui_per(1100ms);
  EXPECT_EQ(registrati(),
            (QStringList{u"P|0000000001|1000000001|"_s + momento, u"R|0000000001|1000000002|"_s + momento}));
  EXPECT_EQ(lampada(1), b.parti().tabellone.keyU.FillColor());
  EXPECT_EQ(errore(), QString());
  EXPECT_EQ(muove('0', "1000000001"), "ABCDEFGHIJ0");
}

TEST_F(MovimentiInAttesaTest, NessunoPassaDavanti) {
  tessera();
  blocca();
  muove('1', "1000000001");
  libera();
  EXPECT_EQ(muove('0', "1000000001"), "ABCDEFGHIJ0");  // takes the waiting one along
  EXPECT_EQ(b.uno(u"select operatore from tessere_chiavi where codice = '1000000001'"_s), u" "_s);
  EXPECT_EQ(registrati().size(), 2);
  EXPECT_TRUE(registrati().value(0).startsWith(u'P'));
  b.vm.esegui_per(10s);
  EXPECT_EQ(registrati().size(), 2);
}

// The card may have one key more out than its limit of 1 before it is refused.
TEST_F(MovimentiInAttesaTest, IlLimiteContaAncheCioCheAspetta) {
  EXPECT_EQ(tessera(), "00090001");
  EXPECT_EQ(muove('1', "1000000001"), "ABCDEFGHIJ0");
  blocca();
  EXPECT_EQ(tessera(), "00090001");
  EXPECT_EQ(muove('1', "1000000002"), "ABCDEFGHIJ");
  EXPECT_EQ(tessera(), "00090000");
  EXPECT_EQ(muove('0', "1000000002"), "ABCDEFGHIJ");
  EXPECT_EQ(tessera(), "00090001");
  EXPECT_EQ(muove('1', "1000000002"), "ABCDEFGHIJ");
  libera();
  b.vm.esegui_per(1s);
  EXPECT_EQ(tessera(), "00090000");
}

TEST_F(MovimentiInAttesaTest, FineLavoroChiedeSeQualcosaAspetta) {
  const auto fine_lavoro = [&](QList<bool> risposte) {
    b.vm.messaggi().mostrati.clear();
    b.vm.messaggi().risposte = std::move(risposte);
    b.vm.programma().finito = false;
    b.parti().menu.mnuEsc_Click();
    return std::pair(b.vm.messaggi().mostrati.size(), b.vm.programma().finito);
  };
  EXPECT_EQ(fine_lavoro({}), std::pair(qsizetype{0}, true));
  tessera();
  blocca();
  muove('1', "1000000001");
  EXPECT_EQ(fine_lavoro({}), std::pair(qsizetype{1}, false));
  EXPECT_EQ(b.vm.messaggi().mostrati.value(0).bottoni, Bottoni::si_no);
  EXPECT_EQ(fine_lavoro({true}), std::pair(qsizetype{1}, true));
  libera();
  EXPECT_EQ(fine_lavoro({}), std::pair(qsizetype{0}, true));
  EXPECT_EQ(registrati().size(), 1);
}

}  // namespace
}  // namespace lokera::prova
