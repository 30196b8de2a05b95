#include "access/decisioni.h"

#include "aiuti/banco.h"

namespace lokera::prova {
namespace {

using namespace Qt::StringLiterals;

/// A managed cabinet at the live session of a started console.
class DecisioniTest : public ::testing::Test, protected BancoLive {
 protected:
  DecisioniTest() {
    b.lokera(1, 1);
    b.main().Form_Load();
    EXPECT_EQ(b.main().lblStatus.Caption(), u"ON Line"_s);
    // Groups: operators 1, keys 5 and 6.
    b.tessera(u"0000000001"_s, 1);
    b.abilita(u"0000000001"_s, 5);
    b.chiave(u"1000000001"_s, 1, 0, 5);
    b.chiave(u"1000000002"_s, 1, 1, 6);
    b.chiave(u"1000000003"_s, 2, 0, 5);
  }
  PannelloLive& p() { return b.parti().pannello; }
  char stato() { return b.parti().decisioni.stato_operazione; }
};

TEST_F(DecisioniTest, Operatori) {
  const QDate oggi(2008, 11, 30);
  const auto giorno = [&](int scarto) { return QVariant(momento(oggi.addDays(scarto), QTime(23, 59))); };
  b.tessera(u"0000000010"_s, 1, 0, giorno(0), giorno(0));
  b.tessera(u"0000000011"_s, 1, 0, giorno(1), {});
  b.tessera(u"0000000012"_s, 1, 0, {}, giorno(-1));
  b.tessera(u"0000000013"_s, 1, 0, giorno(-5), giorno(5));
  struct Caso {
    const char* nome;
    QByteArray codice;
    char stato;
    const char* risposta;
    Colore lampada;
    const char16_t* mostrato;
  };
  const Caso casi[] = {{"no limits", "0000000001", '1', "00090001", verde, u"0000000001"},
                       {"valid from and until today", "0000000010", '1', "00090001", verde, u"0000000010"},
                       {"from tomorrow", "0000000011", '1', "00090000", rosso, u"0000000011"},
                       {"until yesterday", "0000000012", '1', "00090000", rosso, u"0000000012"},
                       {"within", "0000000013", '1', "00090001", verde, u"0000000013"},
                       {"unknown", "0000000099", '1', "00090000", rosso, u""},
                       {"taken away", "0000000001", '0', "00090000", grigio, u""},
                       {"other state", "0000000001", '7', "00090000", rosso, u""}};
  for (const Caso& c : casi) {
    EXPECT_EQ(tessera(c.codice, c.stato), c.risposta) << c.nome;
    EXPECT_EQ(p().ShapeP.FillColor(), c.lampada) << c.nome;
    EXPECT_EQ(p().lblP.Caption(), QString::fromUtf16(c.mostrato)) << c.nome;
    const bool rifiutato = QByteArray(c.risposta).endsWith('0');
    EXPECT_EQ(p().TimerSlot->Enabled(), rifiutato) << c.nome;
    EXPECT_TRUE(!rifiutato || p().TimerSlot->Interval() == 5000) << c.nome;
    EXPECT_TRUE(b.main().lblErrore.Caption().isEmpty()) << c.nome;
  }
}

TEST_F(DecisioniTest, Chiavi) {
  struct Caso {
    const char* nome;
    QByteArray codice;
    char verso;
    const char* risposta;
    char stato;
    const char16_t* gruppo;
  };
  const Caso casi[] = {{"own group", "1000000001", '1', "00091001", 'P', u"5"},
                       {"group without membership", "1000000002", '1', "00091000", ' ', u"6"},
                       {"another cabinet's", "1000000003", '1', "00091000", ' ', u"5"},
                       {"unknown", "1000000099", '1', "00091000", ' ', u""},
                       {"return of an unknown key", "1000000099", '0', "00091001", 'R', u""},
                       {"return, other direction", "1000000002", 'x', "00091001", 'R', u""}};
  for (const Caso& c : casi) {
    EXPECT_EQ(tessera("0000000001"), "00090001") << c.nome;
    EXPECT_EQ(chiave(c.codice, c.verso), c.risposta) << c.nome;
    EXPECT_EQ(stato(), c.stato) << c.nome;
    const bool sinistra = c.verso == '1';
    EXPECT_EQ((sinistra ? p().ShapeSX : p().ShapeDX).FillColor(), c.stato == ' ' ? rosso : verde) << c.nome;
    EXPECT_EQ((sinistra ? p().lblSX : p().lblDX).Caption(), QString::fromLatin1(c.codice)) << c.nome;
    EXPECT_EQ((sinistra ? p().lblSxG : p().lblDxG).Caption(), QString::fromUtf16(c.gruppo)) << c.nome;
    EXPECT_EQ((sinistra ? p().TimerSX : p().TimerDX)->Enabled(), c.stato == ' ') << c.nome;
    esito("99");
  }
}

// The panel names a refused card for a while, and a key could be in its hand meanwhile.
TEST_F(DecisioniTest, ConUnaTesseraRifiutataNonSiPrelevaSiRestituisce) {
  b.tessera(u"0000000010"_s, 1, 0, {}, momento(QDate(2008, 11, 29), QTime(0, 0)));
  b.abilita(u"0000000010"_s, 5);
  EXPECT_EQ(tessera("0000000010"), "00090000");
  EXPECT_EQ(chiave("1000000001"), "00091000");
  EXPECT_EQ(p().lblP.Caption(), u"0000000010"_s);
  EXPECT_EQ(p().lblSxG.Caption(), u"5"_s);
  EXPECT_EQ(chiave("1000000001", '0'), "00091001");
  EXPECT_EQ(esito("01"), "00092ABCDEFGHIJ0");
  EXPECT_EQ(tessera("0000000001"), "00090001");
  EXPECT_EQ(chiave("1000000001"), "00091001");
}

// The session stays with the cabinet that it was opened for, wherever the cycle goes.
TEST_F(DecisioniTest, DecideLaLokeraCollegataNonQuellaDelCiclo) {
  b.chiave(u"1000000004"_s, 2, 1, 5);
  Tabellone& t = b.parti().tabellone;
  for (const QString& del_ciclo : {u"2"_s, u"1"_s}) {
    b.main().corrente.lblID.Caption = del_ciclo;
    EXPECT_FALSE(b.parti().tabellone.situazione_chiavi().fallito());
    tessera("0000000001");
    EXPECT_EQ(chiave("1000000003"), "00091000");
    EXPECT_EQ(chiave("1000000001"), "00091001");
    esito("03");
    // The board of another cabinet stays as it is.
    const bool propria = del_ciclo == u"1"_s;
    EXPECT_EQ(t.lampade_chiave(1).FillColor(), (propria ? t.keyU : t.keyP).FillColor());
  }
  t.mostra_movimento(Movimento(), {.descrizione = {}, .lokera = 1, .posizione = 1});
  chiave("1000000004", '0');  // brought to the wrong cabinet: this board has another key at its place
  esito("01");
  EXPECT_EQ(t.lampade_chiave(2).FillColor(), t.keyU.FillColor());
}

TEST_F(DecisioniTest, FasceAlMinuto) {
  b.fascia(1, 5, u"Lunedì"_s, QTime(1, 0), QTime(2, 0));  // another day imposes nothing
  b.fascia(1, 5, u"Domenica"_s, QTime(8, 0), QTime(12, 0));
  b.fascia(1, 5, u"Domenica"_s, QTime(14, 0), QTime(15, 0));
  const std::pair<QTime, bool> casi[] = {{QTime(7, 59, 50), false}, {QTime(8, 0), true},
                                         {QTime(12, 0, 50), true},  {QTime(12, 1), false},
                                         {QTime(14, 30), true},     {QTime(15, 1), false}};
  for (const auto& [ora, ammesso] : casi) {
    b.vm.orologio().imposta(momento(QDate(2008, 11, 30), ora));
    tessera("0000000001");
    EXPECT_EQ(chiave("1000000001"), ammesso ? "00091001" : "00091000") << ora.toString().toStdString();
    esito("99");
  }
}

TEST_F(DecisioniTest, EsitiELoroMovimenti) {
  struct Caso {
    const char* nome;
    char verso;
    const char *codice, *risposta, *movimento;
    Colore prima, seconda;
    char sul_tabellone;
  };
  const Caso casi[] = {{"withdrawal given up", '1', "02", "00092ABCDEFGHIJ1", "", verde, rosso, 'P'},
                       {"withdrawal done", '1', "03", "00092ABCDEFGHIJ0", "P", rosso, verde, 'U'},
                       {"return given up", '0', "00", "00092ABCDEFGHIJ1", "", verde, rosso, 'U'},
                       {"return done", '0', "01", "00092ABCDEFGHIJ0", "R", rosso, verde, 'P'},
                       {"another operation's code", '1', "01", "00092ABCDEFGHIJ", "", grigio, grigio, 'P'},
                       {"unknown code", '0', "77", "00092ABCDEFGHIJ", "", grigio, grigio, 'P'}};
  Tabellone& t = b.parti().tabellone;
  EXPECT_FALSE(t.situazione_chiavi().fallito());
  for (const Caso& c : casi) {
    b.sql(u"delete from movimenti"_s);
    EXPECT_EQ(tessera("0000000001"), "00090001") << c.nome;
    EXPECT_EQ(chiave("1000000001", c.verso), "00091001") << c.nome;
    EXPECT_EQ(esito(c.codice), c.risposta) << c.nome;
    EXPECT_EQ(stato(), ' ') << c.nome;
    const bool sinistra = c.verso == '1';
    EXPECT_EQ((sinistra ? p().lampade_esito_5 : p().lampade_esito_6).FillColor(), c.prima) << c.nome;
    EXPECT_EQ((sinistra ? p().lampade_esito_7 : p().lampade_esito_8).FillColor(), c.seconda) << c.nome;
    EXPECT_TRUE((sinistra ? p().TimerSX : p().TimerDX)->Enabled()) << c.nome;
    EXPECT_TRUE(p().TimerSlot->Enabled()) << c.nome;
    EXPECT_EQ(b.uno(u"select operazione from movimenti"_s).toString(), QString::fromLatin1(c.movimento))
        << c.nome;
    EXPECT_EQ(t.lampade_chiave(1).FillColor(), (c.sul_tabellone == 'U' ? t.keyU : t.keyP).FillColor())
        << c.nome;
  }
  EXPECT_EQ(esito("03"), "00092ABCDEFGHIJ");  // nothing was open
}

TEST_F(DecisioniTest, ConUnOperazioneApertaSoloLaFineHaRisposta) {
  tessera("0000000001");
  chiave("1000000001");
  EXPECT_EQ(tessera("0000000001"), "-");
  EXPECT_EQ(chiave("1000000001"), "-");
  EXPECT_EQ(chiedi("00092.ABC"), "-");  // shorter than sixteen characters
  EXPECT_EQ(chiedi("0009\xC8.ABCDEFGHIJ.03"), "-");
  EXPECT_EQ(stato(), 'P');
  EXPECT_EQ(esito("02"), "00092ABCDEFGHIJ1");
}

TEST_F(DecisioniTest, UnFrammentoNonApreNeChiudeNulla) {
  const auto frammenti = [&](const QList<QByteArray>& testi) {
    lokera.ricevuti.clear();
    for (const QByteArray& testo : testi) {
      lokera.invia(componi_frame(testo).chopped(1));
      b.vm.esegui_per(1s);
    }
    return lokera.ricevuti.size();
  };
  tessera("0000000001");
  EXPECT_EQ(frammenti({"00091..012345678911000000001", "00090..012345678900000000001"}), 0);
  EXPECT_EQ(stato(), ' ');
  EXPECT_EQ(p().ShapeP.FillColor(), verde);
  chiave("1000000001");
  EXPECT_EQ(frammenti({"00092.ABCDEFGHIJ.03"}), 0);
  EXPECT_EQ(stato(), 'P');
  EXPECT_EQ(b.conta(u"movimenti"_s), 0);
}

TEST_F(DecisioniTest, DaUnErroreNonEsceMaiUnConsenso) {
  for (const QString& tabella : {u"tessere_chiavi"_s, u"gruppi_tessera"_s, u"fascie_orarie"_s}) {
    EXPECT_EQ(tessera("0000000001"), "00090001");
    b.main().lblErrore.Caption = QString();
    b.sql(u"alter table %1 rename to via"_s.arg(tabella));
    EXPECT_EQ(chiave("1000000001"), "00091000") << tabella.toStdString();
    EXPECT_FALSE(b.main().lblErrore.Caption().isEmpty()) << tabella.toStdString();
    (void)b.db().connessione_db.Execute(u"drop table %1"_s.arg(tabella));  // of the migration
    b.sql(u"alter table via rename to %1"_s.arg(tabella));
  }
  EXPECT_EQ(tessera("0000000001"), "00090001");
  b.senza_giorni();
  EXPECT_EQ(chiave("1000000001"), "00091000");
  b.sql(u"alter table tessere_operatori rename to via"_s);
  EXPECT_EQ(tessera("0000000001"), "00090000");
  EXPECT_EQ(p().ShapeP.FillColor(), rosso);
}

// Without the word for today no band would be found, and without a band every hour is good.
TEST_F(DecisioniTest, SenzaIlGiornoNellaLinguaDelleFasceNonSiConsente) {
  b.sql(u"update traduzioni set inglese = 'Today' where italiano = ?"_s,
        {nome_giorno(b.vm.orologio().adesso().date().dayOfWeek())});
  b.fascia(1, 5, u"Today"_s, QTime(0, 0), QTime(0, 1));
  tessera("0000000001");
  b.db().lingua_interfaccia = 1;
  b.sql(u"alter table traduzioni rename to via"_s);
  EXPECT_EQ(chiave("1000000001"), "00091000");
  b.sql(u"alter table via rename to traduzioni"_s);
  EXPECT_EQ(chiave("1000000001"), "00091000") << "the band is closed";
  b.sql(u"delete from fascie_orarie"_s);
  EXPECT_EQ(chiave("1000000001"), "00091001");
}

// What an earlier request or end left running must not take the operator and the key off the panel while the
// next key is out of its place.
TEST_F(DecisioniTest, UnOperazioneApertaRestaSulPannello) {
  const std::function<void()> avviano[] = {
      [&] { chiave("1000000002"); },                        // refused on the left
      [&] { chiave("1000000001"), esito("02"); },           // given up: the left side and the panel
      [&] { chiave("1000000002", '0'), esito("00"); },      // the right side
      [&] { tessera("0000000099"), chiave("1000000001"); }  // card and key refused
  };
  for (const auto& avvia : avviano) {
    for (const char verso : {'1', '0'}) {
      b.sql(u"delete from movimenti"_s);
      tessera("0000000001");
      avvia();
      const QString operatore = p().lblP.Caption();
      if (verso == '1' && operatore.isEmpty()) continue;
      EXPECT_EQ(chiave("1000000001", verso), "00091001");
      b.vm.esegui_per(6s);
      EXPECT_EQ((verso == '1' ? p().ShapeSX : p().ShapeDX).FillColor(), verde);
      EXPECT_EQ(esito(verso == '1' ? "03" : "01"), "00092ABCDEFGHIJ0");
      EXPECT_EQ(b.righe(u"select operatore, chiave from movimenti"_s),
                QStringList{operatore + u"|1000000001"_s});
    }
  }
  EXPECT_EQ(b.uno(u"select operatore from tessere_chiavi where codice = '1000000001'"_s), u" "_s);
}

TEST_F(DecisioniTest, IlPannelloTornaARiposo) {
  tessera("0000000099");
  b.vm.esegui_per(5100ms);
  EXPECT_EQ(p().ShapeP.FillColor(), grigio);
  EXPECT_EQ(p().TimerSlot->Interval(), 3000);
  // The side's timer takes the operator with it, where the cabinet has a slot.
  for (const bool slot : {false, true}) {
    p().modo_slave = slot;
    tessera("0000000001");
    chiave("1000000002");
    EXPECT_EQ(p().lblSxG.Caption(), u"6"_s);
    b.vm.esegui_per(3100ms);
    EXPECT_EQ(p().lblSX.Caption(), u"Tessera chiave"_s);
    EXPECT_EQ(p().lblP.Caption(), slot ? QString() : u"0000000001"_s);
    EXPECT_EQ(p().ShapeP.FillColor(), slot ? grigio : verde);
  }
  EXPECT_EQ(p().lblPG.Caption(), u"1"_s);
  EXPECT_EQ(p().lblIntestazione.Caption(), u"intestazione"_s);
}

}  // namespace
}  // namespace lokera::prova
