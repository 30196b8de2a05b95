#include "aiuti/banco.h"

namespace lokera::prova {
namespace {

TEST(Avvio, LaPrimaRigaDecideETutteSonoInElenco) {
  Banco b;
  b.lokera(3, 1);
  b.lokera(1);
  b.lokera(2);
  b.sql(
      QStringLiteral("update parametri set tempo_attesa_inizio = 17, tempo_di_comunicazione = 800, slot = 0,"
                     " orario_aggiornamento_tessere = #06:30# where ID = 1"));
  b.main().trova_lokere_sistema();
  frm_Main& m = b.main();
  EXPECT_TRUE(m.cabinet_controllate);
  EXPECT_FALSE(m.modo_slave());
  EXPECT_EQ(m.lblID.Caption(), QStringLiteral("1"));
  EXPECT_EQ(m.lblNome.Caption(), QStringLiteral("lokera 1"));
  EXPECT_EQ(m.lblIndirizzoIP.Caption(), QStringLiteral("127.000.000.002"));
  EXPECT_EQ(m.lblModalità.Caption(), QStringLiteral("autonomo - STAND-ALONE"));
  EXPECT_EQ(m.lblOrarioAgg.Caption(), QStringLiteral("06:30"));
  EXPECT_EQ(m.pannello.TimerSX->Interval(), 1700);
  EXPECT_EQ(m.pannello.TimerDX->Interval(), 1700);
  EXPECT_EQ(m.pannello.TimerSlot->Interval(), 1600);
  ASSERT_EQ(m.ciclo.grdLokere.Rows(), 3);
  EXPECT_TRUE(m.ciclo.grdLokere.Visible());
  EXPECT_EQ(m.ciclo.grdLokere.cella(2, u"descrizione"), QStringLiteral("lokera 3"));
  EXPECT_EQ(m.ciclo.grdLokere.cella(2, u"errori"), QStringLiteral("0"));
}

TEST(Avvio, UnaSolaLokeraNascondeLElenco) {
  Banco b;
  b.lokera(1);
  b.main().trova_lokere_sistema();
  EXPECT_FALSE(b.main().ciclo.grdLokere.Visible());
}

TEST(Avvio, SoloLaPrimaGestitaApreLaSessione) {
  for (const bool prima_gestita : {false, true}) {
    Banco b;
    LokeraFinta viva(b.vm, QStringLiteral("127.0.0.2"), 10002);
    b.lokera(1, prima_gestita ? 1 : 0);
    b.lokera(2, 1);
    b.main().Form_Load();
    EXPECT_EQ(viva.connessioni, prima_gestita ? 1 : 0);
    EXPECT_EQ(b.main().lblModalità.Caption(),
              prima_gestita ? QStringLiteral("gestito - SLAVE") : QStringLiteral("autonomo - STAND-ALONE"));
    EXPECT_EQ(b.main().lblStatus.Caption(),
              prima_gestita ? QStringLiteral("ON Line") : QStringLiteral("OFF Line"));
  }
}

// With the session open the first visit is minutes away.
TEST(Avvio, IlTabelloneEDisegnatoSubito) {
  Banco b;
  LokeraFinta viva(b.vm, QStringLiteral("127.0.0.2"), 10002);
  b.lokera(1, 1);
  b.chiave(QStringLiteral("1000000001"), 1, 2);
  b.main().Form_Load();
  Tabellone& t = b.main().tabellone;
  EXPECT_EQ(t.lampade_chiave(3).FillColor(), t.keyP.FillColor());
  EXPECT_TRUE(t.pnlK(0).Visible());
}

TEST(Avvio, SenzaLokereNonFaCheContare) {
  Banco b;
  b.main().Form_Load();
  EXPECT_EQ(b.main().lblStatusD.Caption(), QStringLiteral("OFF Line"));
  EXPECT_EQ(b.uno(QStringLiteral(
                "select nr_seriale_vidimatore from computers where nome_computer = 'PC-CENTRALE'")),
            1);
  EXPECT_EQ(b.main().ciclo.conta_fascie, 0);  // the bands run at the first tick
  b.vm.esegui_per(300s);
  EXPECT_EQ(b.main().ciclo.conta_fascie, 0);
  EXPECT_EQ(b.main().ciclo.conta_tick, 0);
}

TEST(Avvio, MenuChiusiTitoloEReleaseNelFile) {
  Banco b;
  b.lokera(1);
  b.main().Form_Load();
  for (const Menu* menu : {&b.main().menu.mnuTab, &b.main().menu.mnuMov, &b.main().menu.mnuUtilities})
    EXPECT_FALSE(menu->Enabled());
  EXPECT_TRUE(b.main().accesso.mnuAbile.Enabled());
  EXPECT_EQ(b.main().Caption(), QStringLiteral("Lokera elettronica - release 30/11/2008"));
  EXPECT_EQ(
      b.uno(QStringLiteral("select release_aggiornamento_programma from parametri")).toDateTime().date(),
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
  EXPECT_EQ(b.vm.messaggi().mostrati[0].testo, QStringLiteral("Programma già in esecuzione!"));
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
    EXPECT_EQ(vm.messaggi().mostrati.value(0).testo,
              QStringLiteral("Errore in apertura database di sistema !"));
    EXPECT_TRUE(vm.programma().finito);
  }
}

TEST(Avvio, UnoSchemaTroppoVecchioSiAggiornaEFinisce) {
  Banco b;
  b.sql(QStringLiteral("drop table parametri"));
  b.main().Form_Load();
  EXPECT_TRUE(b.vm.programma().finito);
  EXPECT_TRUE(b.vm.messaggi().mostrati.isEmpty());
  EXPECT_EQ(b.conta(QStringLiteral("parametri")), 0);  // there again
  Console prossimo(b.vm.macchina());
  ASSERT_TRUE(prossimo.apri(b.cartella.path()));
  prossimo.principale().Form_Load();
  EXPECT_TRUE(prossimo.principale().ciclo.TimerDownload->Enabled());
}

TEST(Avvio, NellaSecondaLinguaLeScritteSonoTradotte) {
  Banco b;
  b.lokera(1);
  b.sql(QStringLiteral("update parametri set lingua = 1"));
  b.main().Form_Load();
  EXPECT_EQ(b.main().tabellone.lblKeyU.Caption(), QStringLiteral("Key out"));
  EXPECT_EQ(b.main().lblStatus.Caption(), QStringLiteral("OFF Line"));
  EXPECT_TRUE(b.main().lblOrario.Caption().startsWith(QStringLiteral("Sunday   30/11/2008  08:")));
  b.main().trova_lokere_sistema();  // again, as after the registration of a cabinet
  EXPECT_EQ(b.conta(QStringLiteral("traduzioni"), QStringLiteral("italiano = 'Key out'")), 0);
}

// A console that could not even begin to read would run all day without a cabinet.
TEST(Avvio, SenzaPoterLeggereNonSiAvvia) {
  Banco b;
  b.lokera(1);
  b.db().connessione_db.Close();
  b.main().Form_Load();
  EXPECT_TRUE(b.vm.programma().finito);
  ASSERT_EQ(b.vm.messaggi().mostrati.size(), 1);
  EXPECT_EQ(b.vm.messaggi().mostrati[0].testo, QStringLiteral("Errore in apertura database di sistema !"));
}

}  // namespace
}  // namespace lokera::prova
