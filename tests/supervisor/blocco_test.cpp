// Another console holds the file's lock at the start.
#include "aiuti/banco.h"

namespace lokera::prova {
namespace {

using namespace Qt::StringLiterals;

const QString errore_apertura = u"Errore in apertura database di sistema !"_s;

/// Takes the lock of a file and gives it back after a while.
class AltraConsole {
 public:
  explicit AltraConsole(const QString& file) { EXPECT_FALSE(c_.Open(file, password_database()).fallito()); }
  void blocca(VirtualMachine& vm, Monotonic durata, const QString& come = u"begin exclusive"_s) {
    esegui(c_, come);
    vm.ciclo().fra(durata, [this] { esegui(c_, u"rollback"_s); });
  }

 private:
  Connection c_;
};

class BloccoAllAvvio : public ::testing::TestWithParam<bool> {
 protected:
  BloccoAllAvvio() { b.lokera(1); }
  /// The start, locked before its opening or before its first reading.
  void avvia(Monotonic durata, const QString& come = u"begin exclusive"_s) {
    Console console(b.vm.macchina());
    if (GetParam()) altra.blocca(b.vm, durata, come);
    if (!console.apri(b.cartella.path())) return;
    if (!GetParam()) altra.blocca(b.vm, durata, come);
    console.principale().Form_Load();
    caricata = console.parti().ciclo.TimerDownload->Enabled();
    elenco = console.parti().ciclo.grdLokere.Rows();
    colonne = console.parti().ciclo.grdLokere.Cols();
  }

  Banco b;
  AltraConsole altra{b.file()};
  bool caricata = false;
  int elenco = 0, colonne = 0;
};

TEST_P(BloccoAllAvvio, ChePassaPortaAUnAvvioNormale) {
  const std::pair<Monotonic, bool> casi[] = {{400ms, false}, {3s, true}, {29s, true}};
  for (const auto& [durata, avviso] : casi) {
    b.vm.desktop().avvisi.clear();
    avvia(durata);
    EXPECT_TRUE(caricata);
    EXPECT_EQ(elenco, 1);
    EXPECT_GT(colonne, 4);
    EXPECT_FALSE(b.vm.programma().finito);
    EXPECT_EQ(b.vm.messaggi().testi(), QStringList());
    EXPECT_EQ(b.vm.desktop().avvisi.size(), avviso ? 1 : 0) << durata.count();
    EXPECT_EQ(b.vm.desktop().avviso, QString());
    EXPECT_EQ(b.conta(u"parametri"_s, u"release_aggiornamento_programma is not null"_s), 1);
    EXPECT_EQ(b.conta(u"computers"_s), 1);
  }
}

TEST_P(BloccoAllAvvio, CheRestaFinisceConIlMessaggio) {
  const Monotonic inizio = b.vm.orologio().monotono();
  avvia(60s);
  const Monotonic atteso = b.vm.orologio().monotono() - inizio;
  EXPECT_GE(atteso, 30s);
  EXPECT_LT(atteso, 31s);
  EXPECT_FALSE(caricata);
  EXPECT_TRUE(b.vm.programma().finito);
  EXPECT_EQ(b.vm.messaggi().testi(), QStringList{errore_apertura});
  EXPECT_EQ(b.vm.desktop().avviso, QString());
}

INSTANTIATE_TEST_SUITE_P(Quando, BloccoAllAvvio, ::testing::Bool());

TEST(Blocco, SoloUnaColonnaMancanteEUnFileVecchio) {
  Banco b;
  b.sql(u"drop table parametri"_s);
  b.sql(u"create table parametri ([ID] integer, CONSTRAINT agendaKEY PRIMARY KEY ([ID]))"_s);
  b.sql(u"insert into parametri values (7)"_s);
  AltraConsole altra(b.file());
  altra.blocca(b.vm, 5s, u"begin immediate"_s);
  b.main().Form_Load();
  EXPECT_TRUE(b.vm.programma().finito);
  EXPECT_EQ(b.vm.messaggi().testi(), QStringList());
  EXPECT_EQ(b.righe(u"select slot, computer_ctrl from parametri"_s), QStringList{"0| "});
}

}  // namespace
}  // namespace lokera::prova
