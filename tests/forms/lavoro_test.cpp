#include "forms/lavoro.h"

#include "aiuti/finestre.h"

namespace lokera::prova {
namespace {

using std::chrono::milliseconds;

class LavoroLungo : public BancoFinestre {
 protected:
  /// A run over a thousand items of a millisecond each.
  int esegui(const std::function<void()>& passo = {}) {
    Lavoro::Corsa corsa(lavoro, 1000);
    int i = 0;
    for (; corsa.continua(i); ++i) {
      vm.orologio().avanza_a(vm.orologio().monotono() + milliseconds(1));
      if (passo) passo();
    }
    return i;
  }

  Finestra finestra{elenco, u"frm_prova"_s};
  Lavoro lavoro{finestra, attesa, traduttore};
};

TEST_F(LavoroLungo, DiceAChePuntoESiLasciaInterrompere) {
  QStringList visti;
  int dentro = -1;
  vm.ciclo().fra(milliseconds(100), [&] {
    visti += lavoro.lblLavoro.Caption() + u' ' + QString::number(lavoro.pgbLavoro.Value());
    EXPECT_TRUE(lavoro.cmdInterrompi.Visible());
    dentro = esegui();  // its button pressed once more
    EXPECT_TRUE(lavoro.in_corso());
  });
  EXPECT_EQ(esegui(), 1000);
  EXPECT_EQ(visti.join(u'/'), u"100 di 1000 100"_s);
  EXPECT_EQ(dentro, 0);
  EXPECT_EQ(lavoro.lblLavoro.Caption(), u"1000 di 1000"_s);
  EXPECT_FALSE(lavoro.cmdInterrompi.Visible());

  vm.ciclo().fra(milliseconds(330), [&] { lavoro.cmdInterrompi.Click(); });
  EXPECT_EQ(esegui(), 340) << "the loop runs every 20 ms";
  EXPECT_EQ(lavoro.lblLavoro.Caption(), u"interrotto: 340 di 1000"_s);
  EXPECT_EQ(esegui(), 1000) << "what was stopped can be done again";

  vm.ciclo().fra(milliseconds(50), [&] {
    finestra.chiudi();
    EXPECT_FALSE(finestra.chiusa());
  });
  EXPECT_EQ(esegui(), 60);
  EXPECT_TRUE(finestra.chiusa());
}

}  // namespace
}  // namespace lokera::prova
