#include "commissioning/banco_parametri.h"

namespace lokera::prova {
namespace {

const QString riuscita =
    u"Parametri impostati correttamente. Uscire dal programma e rientrare perchè le modifiche abbiano effetto."_s;
const QString resetta =
    u"La lokera adesso viene resettata. Attendere qualche istante e rifare la ricerca broadcast per verificare le nuove impostazioni!"_s;
const QString muta = u"Mancata risposta dalla lokera!  Riprovare la registrazione."_s;
const QString non_impostati = u"Parametri NON impostati! Riprovare la registrazione.\r\n"_s;
const QString fuori_limite = u"Uno o più campi dati sono oltre il range ammesso"_s;

TEST(Parametri, ITempiStannoNeiLoroLimiti) {
  const struct {
    LimitiTempo limiti;
    const char* scritto;
    const char* spedito;
    int memorizzato;
  } casi[] = {{limiti_comunicazione, "9", "01", 10},
              {limiti_comunicazione, "2501", "FA", 2500},
              {limiti_comunicazione, "25", "02", 20},
              {limiti_comunicazione, "1234", "7B", 1230},
              {limiti_comunicazione, "2.500", "FA", 2500},
              {limiti_sblocco_porta, "99", "0A", 100},
              {limiti_sblocco_porta, "", "0A", 100},
              {limiti_attesa, "0", "01", 1},
              {limiti_attesa, "250.9", "FA", 250},
              {limiti_attesa, "250,9", "FA", 250},
              {limiti_attesa, "-3", "01", 1},
              {limiti_attesa, "trenta", "01", 1},
              {limiti_attesa, "999999999", "FA", 250},
              {limiti_attesa, " 30 ", "1E", 30}};
  for (const auto& c : casi) {
    const TempoLokera t = leggi_tempo(QString::fromLatin1(c.scritto), c.limiti);
    EXPECT_EQ(esadecimale2(t.spedito), c.spedito) << c.scritto;
    EXPECT_EQ(t.memorizzato, c.memorizzato) << c.scritto;
  }
  ParametriLokera p{1, 1, 0, 0, {1, 10}, {10, 100}, {1, 1}, {1, 1}};
  EXPECT_EQ(testo_parametri(p),
            "00095"
            "01010000010A010101"
            "00000000000000");
  EXPECT_EQ(testo_orologio(momento(QDate(2008, 11, 30), QTime(8, 5, 9))), "00020130112008080509");
}

class Registrazione : public BancoParametri {
 protected:
  /// Fills the fields of the row in edit.
  void scrivi(const QString& id, const QString& indirizzo) {
    PannelloParametri& p = apri().pannello;
    p.txtID.Text = id;
    p.txtDescrizione.Text = u"Atrio"_s;
    p.cmbPC.Value(u"PC-CENTRALE"_s);
    p.txtIndirizzoIP.Text = indirizzo;
    p.cmbFunzMod.Value(u"0"_s);
    p.txtTimeComServer.Text = u"1234"_s;
    p.txtOrarioAgg.Text = u"3.15"_s;
  }
  QString in_lista() {
    const SSOleDBGrid& g = b.parti().ciclo.grdLokere;
    QStringList tutte;
    for (int n = 0; n < g.Rows(); ++n) tutte << g.cella(n, u"id") + u'@' + g.cella(n, u"indirizzoIP");
    return tutte.join(u' ');
  }
};

TEST_F(Registrazione, UnaLokeraNuovaHaRigaParametriEOrologio) {
  frm_param_lokere& f = apri();
  f.cmdNuova_Click();
  scrivi(u"7"_s, u"127.000.000.009"_s);
  EXPECT_TRUE(f.pannello.pnlPar.Enabled() && !f.lista.grdLok.Enabled());
  const LokeraFinta lokera(b.vm, u"127.0.0.9"_s, 10001, [](const QByteArray& frame) -> Risposte {
    return {componi_frame(frame.left(5) + (frame.startsWith("00020") ? "0" : "00"))};
  });
  a_datagrammi([](const QByteArray&) { return Risposte(); });
  f.cmdRegPar_Click();
  b.vm.esegui_per(100ms);
  EXPECT_EQ(lokera.ricevuti.value(0), componi_frame("00095"
                                                    "000001017B0A010101"
                                                    "00000000000000"));
  EXPECT_TRUE(lokera.ricevuti.value(1).startsWith("00020130112008080"));
  EXPECT_EQ(datagrammi, Risposte{componi_frame("00073")});
  EXPECT_EQ(messaggi(), QStringList{riuscita});
  EXPECT_EQ(
      b.righe(u"select ID, descrizione, IP_lokera, funzionamento, lingua, dataora, retroilluminazione,"
              " tempo_di_comunicazione, tempo_sblocco_porta, tempo_attesa_inizio, tempo_attesa_fine,"
              " tempo_attesa_download, porta_slave, slot, computer_ctrl, orario_aggiornamento_tessere"
              " from parametri"_s),
      QStringList{u"7|Atrio|127.000.000.009|0|0|1|1|1230|100|1|1|0|0|1|PC-CENTRALE|1899-12-30 03:15:00"_s});
  EXPECT_EQ(riga(0), u"7|Atrio|off line|127.000.000.009||||||"_s);
  EXPECT_EQ(f.pannello.txtTimeComServer.Text(), u"1230"_s);
  EXPECT_TRUE(!f.pannello.pnlPar.Enabled() && f.lista.grdLok.Enabled());
  EXPECT_EQ(in_lista(), u"7@127.000.000.009"_s);
}

// Whatever the cabinet says, the row is stored and listed; who can try again stays in the edit.
TEST_F(Registrazione, LaRigaRestaComunqueRispondaLaLokera) {
  const QString sua = u"127.000.000.009"_s, buona = u"10001"_s;
  const QString non_connessa = u"errore in connessione Winsock TCP/Ip protocol"_s;
  const QByteArray rifiuto = componi_frame("0009503");
  const struct {
    const char* nome;
    QString indirizzo, porta;
    Risposte risposta;
    QStringList messaggi;
    bool in_modifica;
  } casi[] = {
      {"no address", {}, buona, {}, {u"Indirizzo IP della lokera non configurato!"_s}, false},
      {"short address", u"127.0.0.9"_s, buona, {}, {u"Indirizzo IP della lokera non valido!"_s}, false},
      {"group 999", u"999.000.000.009"_s, buona, {}, {non_connessa}, false},
      {"no address at all", u"quindici caratt"_s, buona, {}, {non_connessa}, false},
      {"port above all", sua, u"75537"_s, {}, {non_connessa}, false},
      {"silent", sua, buona, {}, {muta}, true},
      {"refuses",
       sua,
       buona,
       {rifiuto},
       {fuori_limite, non_impostati + QString::fromLatin1(rifiuto.chopped(1))},
       true},
      {"answers another", sua, buona, {componi_frame("0001000X")}, {muta}, true},
  };
  b.lokera(1);
  frm_param_lokere& f = apri();
  a_datagrammi([](const QByteArray&) { return Risposte(); });
  Risposte risposta;
  const LokeraFinta lokera(b.vm, u"127.0.0.9"_s, 10001, [&](const QByteArray&) { return risposta; });
  for (const auto& c : casi) {
    risposta = c.risposta;
    f.cmdModifica_Click();
    scrivi(u"1"_s, c.indirizzo);
    f.pannello.txtPort.Text = c.porta;
    f.cmdRegPar_Click();
    EXPECT_EQ(messaggi(), c.messaggi) << c.nome;
    EXPECT_EQ(f.pannello.pnlPar.Enabled(), c.in_modifica) << c.nome;
    EXPECT_EQ(b.uno(u"select ip_lokera from parametri"_s).toString().trimmed(), c.indirizzo) << c.nome;
    EXPECT_EQ(in_lista().trimmed(), u"1@"_s + c.indirizzo) << c.nome;
    f.cmdAnnulla_Click();
  }
  EXPECT_EQ(datagrammi, Risposte());
}

TEST_F(Registrazione, UnNumeroDAltriOCheNonEUnNumeroNonScriveNulla) {
  b.lokera(1);
  b.lokera(2);
  frm_param_lokere& f = apri();
  for (const QString& numero : {u"2"_s, u"0"_s, u"-1"_s, u"32768"_s, u"due"_s, QString()}) {
    f.cmdModifica_Click();
    scrivi(numero, u"127.000.000.009"_s);
    f.cmdRegPar_Click();
    EXPECT_EQ(messaggi().size(), 1) << numero.toStdString();
    EXPECT_TRUE(f.pannello.pnlPar.Enabled());
  }
  EXPECT_EQ(b.righe(u"select ID, IP_lokera from parametri order by ID"_s),
            (QStringList{u"1|127.000.000.002"_s, u"2|127.000.000.003"_s}));
}

// Its keys, its queue and what is known of its records go with it; what a cabinet that is no more has left
// under the number goes.
TEST_F(Registrazione, RinumerataPortaConSeLeSueChiavi) {
  b.lokera(1);
  b.chiave(u"1000000001"_s, 1, 3);
  b.in_coda(u"0000000001"_s, 1);
  b.in_coda(u"0000000001"_s, 5, u"D"_s);
  b.sql(u"insert into posiz_tessere_oper values ('0000000001', 1, 4)"_s);
  frm_param_lokere& f = apri();
  f.cmdModifica_Click();
  scrivi(u"5"_s, u"127.000.000.002"_s);
  f.pannello.txtOrarioAgg.Text = QString();
  f.cmdRegPar_Click();
  EXPECT_EQ(b.righe(u"select ID from parametri"_s), QStringList{u"5"_s});
  EXPECT_EQ(b.righe(u"select lokera, posizione from tessere_chiavi"_s), QStringList{u"5|3"_s});
  EXPECT_EQ(b.righe(u"select ID_lokera, operazione from aggiorn_tessere_oper"_s), QStringList{u"5|I"_s});
  EXPECT_EQ(b.righe(u"select ID_lokera, posizione from posiz_tessere_oper"_s), QStringList{u"5|4"_s});
  EXPECT_EQ(in_lista(), u"5@127.000.000.002"_s);
}

TEST_F(Registrazione, EliminareChiedeETogliePureLeChiavi) {
  b.lokera(1);
  b.lokera(2);
  b.chiave(u"1000000001"_s, 1, 3);
  b.chiave(u"1000000002"_s, 2, 3);
  frm_param_lokere& f = apri();
  f.Command1_Click();
  EXPECT_EQ(b.conta(u"parametri"_s), 2) << "not without a yes";
  b.vm.messaggi().mostrati.clear();
  b.vm.messaggi().risposte = {true};
  f.Command1_Click();
  EXPECT_EQ(
      messaggi(),
      (QStringList{
          u"Le registrazioni della lokera e di TUTTE le CHIAVI ad essa legate nel database verranno eliminate. Confermi?"_s,
          u"Eliminazione eseguita!"_s}));
  EXPECT_EQ(b.righe(u"select ID from parametri"_s), QStringList{u"2"_s});
  EXPECT_EQ(b.righe(u"select codice from tessere_chiavi"_s), QStringList{u"1000000002"_s});
  EXPECT_EQ(in_lista(), u"2@127.000.000.003"_s);
  EXPECT_EQ(f.pannello.txtID.Text(), u"2"_s);
  f.cmdNuova_Click();
  f.Command1_Click();
  EXPECT_EQ(messaggi(), QStringList{u"lokera non ancora registrata!"_s});
}

// The cabinet may have taken the settings without a word: the address is stored and the reset goes out.
TEST_F(Registrazione, LeImpostazioniDiReteVannoATutte) {
  const QByteArray frame = componi_frame("000A112700000002010001255255255000127000000001");
  const QString riuscite = u"Parametri di rete impostati correttamente."_s;
  const QString silenzio =
      u"Time out!\rAccertarsi che la lokera sia collegata attraverso un cavo di rete al PC (i LED verde e giallo della scheda di rete della lokera devono essere accesi e fissi)"_s;
  const struct {
    const char* nome;
    Risposte risposta;
    QStringList messaggi;
    int reset;
    const char* maschera = "255.255.255.000";
  } casi[] = {
      {"taken", {componi_frame("000A100")}, {riuscite, resetta}, 1},
      {"silent", {}, {silenzio, resetta}, 1},
      {"a late answer to a search", {scoperta("127000000002")}, {silenzio, resetta}, 1},
      {"refused", {componi_frame("000A103")}, {u"parametri di rete non impostati 000A10343\n"_s}, 0},
      {"short mask", {}, {u"formato parametri errato (es. 192.168.015.250)."_s}, -1, "255.255.255.0"},
  };
  b.lokera(1);
  frm_param_lokere& f = apri();
  Risposte risposta;
  a_datagrammi([&](const QByteArray& d) { return d.startsWith("000A1") ? risposta : Risposte(); });
  for (const auto& c : casi) {
    b.sql(u"update parametri set ip_lokera = '127.000.000.002'"_s);
    f.Command4_Click();
    f.lista.grdLok.Row(0);
    f.cmdModifica_Click();
    f.pannello.txtIndirizzoIP.Text = u"127.000.000.020"_s;
    f.pannello.txtSubMask.Text = QString::fromLatin1(c.maschera);
    f.pannello.txtGateway.Text = u"127.000.000.001"_s;
    datagrammi.clear();
    (void)messaggi();
    risposta = c.risposta;
    f.Command2_Click();
    b.vm.esegui_per(100ms);
    EXPECT_EQ(messaggi(), c.messaggi) << c.nome;
    Risposte attesi;
    if (c.reset >= 0) attesi << frame;
    if (c.reset > 0) attesi << componi_frame("00073");
    EXPECT_EQ(datagrammi, attesi) << c.nome;
    EXPECT_EQ(f.lista.grdLok.Rows(), c.reset > 0 ? 0 : 1) << c.nome;
    EXPECT_EQ(b.uno(u"select ip_lokera from parametri"_s),
              c.reset > 0 ? u"127.000.000.020"_s : u"127.000.000.002"_s)
        << c.nome;
    EXPECT_TRUE(c.reset < 1 || in_lista() == u"1@127.000.000.020"_s) << c.nome;
    f.cmdAnnulla_Click();
  }
}

}  // namespace
}  // namespace lokera::prova
