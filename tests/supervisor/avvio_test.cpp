#include "aiuti/banco.h"

namespace lokera::prova {
namespace {

using namespace Qt::StringLiterals;

TEST(Avvio, LaPrimaRigaDecideETutteSonoInElenco) {
  Banco b;
  b.lokera(3, 1);
  b.lokera(1);
  b.lokera(2);
  b.sql(
      u"update parametri set tempo_attesa_inizio = 17, tempo_di_comunicazione = 800, slot = 0,"
      " orario_aggiornamento_tessere = #06:30# where ID = 1"_s);
  b.parti().partenza.trova_lokere_sistema();
  Supervisore& p = b.parti();
  frm_Main& m = b.main();
  EXPECT_TRUE(p.lokere.cabinet_controllate);
  EXPECT_FALSE(p.lokere.modo_slave());
  EXPECT_EQ(m.corrente.lblID.Caption(), u"1"_s);
  EXPECT_EQ(m.corrente.lblNome.Caption(), u"lokera 1"_s);
  EXPECT_EQ(m.corrente.lblIndirizzoIP.Caption(), u"127.000.000.002"_s);
  EXPECT_EQ(m.lblModalità.Caption(), u"autonomo - STAND-ALONE"_s);
  EXPECT_EQ(m.lblOrarioAgg.Caption(), u"06:30"_s);
  EXPECT_EQ(p.pannello.TimerSX->Interval(), 1700);
  EXPECT_EQ(p.pannello.TimerDX->Interval(), 1700);
  EXPECT_EQ(p.pannello.TimerSlot->Interval(), 1600);
  ASSERT_EQ(p.ciclo.grdLokere.Rows(), 3);
  EXPECT_TRUE(p.ciclo.grdLokere.Visible());
  EXPECT_EQ(p.ciclo.grdLokere.cella(2, u"descrizione"), u"lokera 3"_s);
  EXPECT_EQ(p.ciclo.grdLokere.cella(2, u"errori"), u"0"_s);
}

TEST(Avvio, UnaSolaLokeraNascondeLElenco) {
  Banco b;
  b.lokera(1);
  b.parti().partenza.trova_lokere_sistema();
  EXPECT_FALSE(b.parti().ciclo.grdLokere.Visible());
}

TEST(Avvio, SoloLaPrimaGestitaApreLaSessione) {
  for (const bool prima_gestita : {false, true}) {
    Banco b;
    LokeraFinta viva(b.vm, u"127.0.0.2"_s, 10002);
    b.lokera(1, prima_gestita ? 1 : 0);
    b.lokera(2, 1);
    b.main().Form_Load();
    EXPECT_EQ(viva.connessioni, prima_gestita ? 1 : 0);
    EXPECT_EQ(b.main().lblModalità.Caption(),
              prima_gestita ? u"gestito - SLAVE"_s : u"autonomo - STAND-ALONE"_s);
    EXPECT_EQ(b.main().lblStatus.Caption(), prima_gestita ? u"ON Line"_s : u"OFF Line"_s);
  }
}

// With the session open the first visit is minutes away.
TEST(Avvio, IlTabelloneEDisegnatoSubito) {
  Banco b;
  LokeraFinta viva(b.vm, u"127.0.0.2"_s, 10002);
  b.lokera(1, 1);
  b.chiave(u"1000000001"_s, 1, 2);
  b.main().Form_Load();
  Tabellone& t = b.parti().tabellone;
  EXPECT_EQ(t.lampade_chiave(3).FillColor(), t.keyP.FillColor());
  EXPECT_TRUE(t.pnlK(0).Visible());
}

TEST(Avvio, SenzaLokereNonFaCheContare) {
  Banco b;
  b.main().Form_Load();
  EXPECT_EQ(b.main().lblStatusD.Caption(), u"OFF Line"_s);
  EXPECT_EQ(b.uno(u"select nr_seriale_vidimatore from computers where nome_computer = 'PC-CENTRALE'"_s), 1);
  EXPECT_EQ(b.parti().ciclo.conta_fascie, 0);  // the bands run at the first tick
  b.vm.esegui_per(300s);
  EXPECT_EQ(b.parti().ciclo.conta_fascie, 0);
  EXPECT_EQ(b.parti().ciclo.conta_tick, 0);
}

TEST(Avvio, MenuChiusiTitoloEReleaseNelFile) {
  Banco b;
  b.lokera(1);
  b.main().Form_Load();
  for (const Menu* menu : {&b.parti().menu.mnuTab, &b.parti().menu.mnuMov, &b.parti().menu.mnuUtilities})
    EXPECT_FALSE(menu->Enabled());
  EXPECT_TRUE(b.parti().accesso.mnuAbile.Enabled());
  EXPECT_EQ(b.main().Caption(), u"Lokera elettronica - release 30/11/2008"_s);
  EXPECT_EQ(b.uno(u"select release_aggiornamento_programma from parametri"_s).toDateTime().date(),
            QDate(2008, 11, 30));
  b.main().chiudi();
  EXPECT_FALSE(b.main().chiusa());
}

TEST(Avvio, LaSecondaIstanzaFinisceConIlMessaggio) {
  Banco b;
  Console seconda(b.vm.macchina(), [] { return true; });
  ASSERT_TRUE(seconda.apri(b.cartella.path()));
  seconda.principale().Form_Load();
  ASSERT_EQ(b.vm.messaggi().mostrati.size(), 1);
  EXPECT_EQ(b.vm.messaggi().mostrati[0].testo, u"Programma già in esecuzione!"_s);
  EXPECT_TRUE(b.vm.programma().finito);
}

TEST(Avvio, FileMancanteOTroncato) {
  for (const bool troncato : {false, true}) {
    VirtualMachine vm;
    QTemporaryDir cartella;
    const QString file = cartella.filePath(nome_file_database());
    if (troncato) {
      ASSERT_TRUE(QFile::copy(file_modello(), file));
      ASSERT_TRUE(QFile(file).resize(700));
    }
    Console console(vm.macchina());
    EXPECT_FALSE(console.apri(cartella.path()));
    EXPECT_EQ(vm.messaggi().mostrati.value(0).testo, u"Errore in apertura database di sistema !"_s);
    EXPECT_TRUE(vm.programma().finito);
  }
}

TEST(Avvio, UnoSchemaTroppoVecchioSiAggiornaEFinisce) {
  Banco b;
  b.sql(u"drop table parametri"_s);
  b.main().Form_Load();
  EXPECT_TRUE(b.vm.programma().finito);
  EXPECT_TRUE(b.vm.messaggi().mostrati.isEmpty());
  EXPECT_EQ(b.conta(u"parametri"_s), 0);  // there again
  Console prossimo(b.vm.macchina());
  ASSERT_TRUE(prossimo.apri(b.cartella.path()));
  prossimo.principale().Form_Load();
  EXPECT_TRUE(prossimo.parti().ciclo.TimerDownload->Enabled());
}

TEST(Avvio, NellaSecondaLinguaLeScritteSonoTradotte) {
  Banco b;
  b.lokera(1);
  b.sql(u"update parametri set lingua = 1"_s);
  b.main().Form_Load();
  EXPECT_EQ(b.parti().tabellone.lblKeyU.Caption(), u"Key out"_s);
  EXPECT_EQ(b.main().lblStatus.Caption(), u"OFF Line"_s);
  EXPECT_TRUE(b.main().lblOrario.Caption().startsWith(u"Sunday   30/11/2008  08:"_s));
  b.parti().partenza.trova_lokere_sistema();  // again, as after the registration of a cabinet
  EXPECT_EQ(b.conta(u"traduzioni"_s, u"italiano = 'Key out'"_s), 0);
}

// A console that could not even begin to read would run all day without a cabinet.
TEST(Avvio, SenzaPoterLeggereNonSiAvvia) {
  Banco b;
  b.lokera(1);
  b.db().connessione_db.Close();
  b.main().Form_Load();
  EXPECT_TRUE(b.vm.programma().finito);
  ASSERT_EQ(b.vm.messaggi().mostrati.size(), 1);
  EXPECT_EQ(b.vm.messaggi().mostrati[0].testo, u"Errore in apertura database di sistema !"_s);
}

}  // namespace
}  // namespace lokera::prova
