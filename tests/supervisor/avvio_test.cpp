#include "aiuti/banco.h"

namespace lokera::prova {
namespace {

using namespace Qt::StringLiterals;

TEST(Avvio, LaPrimaRigaDecideETutteSonoInElenco) {
  Banco b;
  Supervisore& p = b.parti();
  frm_Main& m = b.main();
  b.lokera(1);
  p.partenza.trova_lokere_sistema();
  EXPECT_FALSE(p.ciclo.grdLokere.Visible()) << "one alone needs no list";
  b.lokera(3, 1);
  b.lokera(2);
  b.sql(
      u"update parametri set tempo_attesa_inizio = 17, tempo_di_comunicazione = 800, slot = 0,"
      " orario_aggiornamento_tessere = #06:30# where ID = 1"_s);
  p.partenza.trova_lokere_sistema();
  EXPECT_TRUE(p.lokere.cabinet_controllate());
  EXPECT_FALSE(p.lokere.modo_slave());
  EXPECT_EQ(m.corrente.lblID.Caption() + u' ' + m.corrente.lblNome.Caption(), u"1 lokera 1"_s);
  EXPECT_EQ(m.corrente.lblIndirizzoIP.Caption(), u"127.000.000.002"_s);
  EXPECT_EQ(m.lblOrarioAgg.Caption(), u"06:30"_s);
  EXPECT_EQ(p.pannello.TimerSX->Interval(), 1700);
  EXPECT_EQ(p.pannello.TimerDX->Interval(), 1700);
  EXPECT_EQ(p.pannello.TimerSlot->Interval(), 1600);
  ASSERT_EQ(p.ciclo.grdLokere.Rows(), 3);
  EXPECT_TRUE(p.ciclo.grdLokere.Visible());
  EXPECT_EQ(p.ciclo.grdLokere.cella(2, u"descrizione"), u"lokera 3"_s);
  EXPECT_EQ(p.ciclo.grdLokere.cella(2, u"errori"), u"0"_s);
}

TEST(Avvio, SoloLaPrimaGestitaApreLaSessione) {
  for (const bool gestita : {false, true}) {
    Banco b;
    LokeraFinta viva(b.vm, u"127.0.0.2"_s, 10002);
    b.lokera(1, gestita ? 1 : 0);
    b.lokera(2, 1);
    b.chiave(u"1000000001"_s, 1, 2);
    b.main().Form_Load();
    EXPECT_EQ(viva.connessioni, gestita ? 1 : 0);
    EXPECT_EQ(b.main().lblModalità.Caption(), gestita ? u"gestito - SLAVE"_s : u"autonomo - STAND-ALONE"_s);
    EXPECT_EQ(b.main().lblStatus.Caption(), gestita ? u"ON Line"_s : u"OFF Line"_s);
    Tabellone& t = b.parti().tabellone;  // with the session open the first visit is minutes away
    EXPECT_EQ(t.lampade_chiave(3).FillColor(), t.keyP.FillColor()) << gestita;
    EXPECT_TRUE(t.pnlK(0).Visible()) << gestita;
  }
}

TEST(Avvio, TitoloEReleaseNelFile) {
  Banco b;
  b.lokera(1);
  b.main().Form_Load();
  EXPECT_TRUE(b.parti().accesso.mnuAbile.Enabled());
  EXPECT_EQ(b.main().Caption(), u"Lokera elettronica - release 30/11/2008"_s);
  EXPECT_EQ(b.righe(u"select date(release_aggiornamento_programma) from parametri"_s),
            QStringList{u"2008-11-30"_s});
  b.main().chiudi();
  EXPECT_FALSE(b.main().chiusa());
}

// A console that could not even begin to read would run all day without a cabinet.
TEST(Avvio, SenzaFileOPrimatoFinisceConIlMessaggio) {
  const QString apertura = u"Errore in apertura database di sistema !"_s;
  const struct {
    const char* nome;
    std::function<void(Banco&)> guasto;
    bool seconda = false;
    QString messaggio;
  } casi[] = {{"missing", [](Banco& b) { EXPECT_TRUE(QFile::remove(b.file())); }, false, apertura},
              {"truncated", [](Banco& b) { EXPECT_TRUE(QFile(b.file()).resize(700)); }, false, apertura},
              {"unreadable once open", {}, false, apertura},
              {"second on its computer", {}, true, u"Programma già in esecuzione!"_s}};
  for (const auto& c : casi) {
    Banco b;
    b.lokera(1);
    b.db().connessione_db.Close();
    if (c.guasto) c.guasto(b);
    Console console(b.vm.macchina(), [&] { return c.seconda; });
    EXPECT_EQ(console.apri(b.cartella.path()), !c.guasto) << c.nome;
    if (!c.guasto && !c.seconda) console.db().connessione_db.Close();
    if (!c.guasto) console.principale().Form_Load();
    EXPECT_EQ(b.vm.messaggi().testi(), QStringList{c.messaggio}) << c.nome;
    EXPECT_TRUE(b.vm.programma().finito) << c.nome;
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

}  // namespace
}  // namespace lokera::prova
