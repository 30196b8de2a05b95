#include "aiuti/banco.h"

namespace lokera::prova {
namespace {

using namespace Qt::StringLiterals;

QString corrente(Banco& b) {
  const LokeraCorrente& c = b.main().corrente;
  return c.lblID.Caption() + u'|' + c.lblNome.Caption() + u'|' + c.lblIndirizzoIP.Caption();
}
QString elenco(Banco& b) {
  const SSOleDBGrid& grd = b.parti().ciclo.grdLokere;
  QStringList righe;
  for (int i = 0; i < grd.Rows(); ++i) righe += grd.cella(i, u"id") + u' ' + grd.cella(i, u"indirizzoIP");
  return righe.join(u"; "_s);
}
/// The positions on the board that a key belongs to.
QString posti(Banco& b) {
  Tabellone& t = b.parti().tabellone;
  QStringList presenti;
  for (int i = 1; i <= Tabellone::posizioni; ++i)
    if (t.lampade_chiave(i).FillColor() == t.keyP.FillColor()) presenti += QString::number(i);
  return presenti.join(u' ');
}
int pannelli(Banco& b) {
  int visti = 0;
  for (int p = 0; p < Tabellone::pannelli; ++p) visti += b.parti().tabellone.pnlK(p).Visible();
  return visti;
}

const char16_t* const gestito = u"gestito - SLAVE";
const char16_t* const autonomo = u"autonomo - STAND-ALONE";

// Cabinet 1, managed, has a live session and a key at position 3; cabinet 2 decides alone and has one at 1.
TEST(LokereSistema, LaFinestraSegueLaTabella) {
  const struct {
    const char* nome;
    std::vector<const char16_t*> cambi;
    const char16_t *elenco, *corrente, *modo, *posti;
    const char* risposta;  ///< to who wants the key of cabinet 1
    qlonglong rinumerata = 1;
  } casi[] = {{"address replaced",
               {u"update parametri set IP_lokera = '127.000.000.099' where ID = 1"},
               u"1 127.000.000.099; 2 127.000.000.003",
               u"1|lokera 1|127.000.000.099",
               gestito,
               u"3",
               "00091001"},
              {"renumbered behind the other",
               {u"update parametri set ID = 7 where ID = 1",
                u"update tessere_chiavi set lokera = 7 where lokera = 1"},
               u"2 127.000.000.003; 7 127.000.000.002",
               u"2|lokera 2|127.000.000.003",
               autonomo,
               u"1",
               "00091001",
               7},
              {"deleted with its keys",
               {u"delete from parametri where ID = 1", u"delete from tessere_chiavi where lokera = 1"},
               u"2 127.000.000.003",
               u"2|lokera 2|127.000.000.003",
               autonomo,
               u"1",
               "00091000"},
              {"the last one deleted",
               {u"delete from parametri", u"delete from tessere_chiavi"},
               u"",
               u"||",
               autonomo,
               u"",
               "00091000"}};
  for (const auto& c : casi) {
    BancoLive l;
    Banco& b = l.b;
    b.lokera(1, 1);
    b.lokera(2);
    b.chiave(u"1000000001"_s, 1, 2, 5);
    b.chiave(u"1000000002"_s, 2, 0, 5);
    b.tessera(u"0000000001"_s);
    b.abilita(u"0000000001"_s, 5);
    b.in_coda(u"0000000001"_s, 1);
    b.main().Form_Load();
    for (const char16_t* cambio : c.cambi) b.sql(QString::fromUtf16(cambio));
    if (c.rinumerata != 1) b.parti().lokera_rinumerata(1, c.rinumerata);
    b.parti().partenza.trova_lokere_sistema();
    const bool nessuna = c.elenco[0] == 0;
    EXPECT_EQ(elenco(b), QString::fromUtf16(c.elenco)) << c.nome;
    EXPECT_EQ(corrente(b), QString::fromUtf16(c.corrente)) << c.nome;
    EXPECT_EQ(b.main().lblModalità.Caption(), QString::fromUtf16(c.modo)) << c.nome;
    EXPECT_EQ(posti(b), QString::fromUtf16(c.posti)) << c.nome;
    EXPECT_EQ(pannelli(b) == 0, nessuna) << c.nome;
    EXPECT_EQ(b.parti().lokere.cabinet_controllate(), !nessuna) << c.nome;
    EXPECT_EQ(b.main().lblNessunaLokera.Visible(), nessuna) << c.nome;
    EXPECT_EQ(b.main().lblStatus.Caption(), u"ON Line"_s) << c.nome;
    l.tessera("0000000001");
    EXPECT_EQ(l.chiave("1000000001"), c.risposta) << c.nome;
  }
}

TEST(LokereSistema, LaPrimaRegistrataMentreIlProgrammaGira) {
  Banco b;
  b.main().Form_Load();
  EXPECT_EQ(corrente(b), u"||"_s);
  EXPECT_EQ(b.main().lblNessunaLokera.Caption(),
            u"Nessuna lokera assegnata a questo computer (PC-CENTRALE): menu Tabelle, Parametri Sistema"_s);
  b.parti().acquisizione.lblUltimaTrans.Caption = u"28/11/08 15.45.01 Bianchi"_s;
  LokeraFinta lokera(b.vm, u"127.0.0.2"_s, 10001, risponde_bene);
  b.lokera(1, 1);
  b.chiave(u"1000000001"_s, 1, 0);
  b.sql(u"update parametri set lingua = 1"_s);
  b.parti().partenza.trova_lokere_sistema();
  EXPECT_FALSE(b.main().lblNessunaLokera.Visible());
  EXPECT_EQ(corrente(b), u"1|lokera 1|127.000.000.002"_s);
  EXPECT_EQ(posti(b), u"1"_s);
  EXPECT_EQ(b.parti().tabellone.lblKeyU.Caption(), u"Key out"_s);
  EXPECT_TRUE(b.main().lblOrario.Caption().startsWith(u"Sunday"_s));
  EXPECT_EQ(b.righe(u"select italiano from traduzioni where trim(coalesce(inglese, '')) = ''"
                    u" and italiano not like '1000_'"_s),
            QStringList())
      << "data are no words for the table";
  b.vm.esegui_per(35s);
  EXPECT_EQ(b.parti().ciclo.grdLokere.cella(0, u"seriale"), u"12345"_s) << "the next tick visits it";
}

// What the cycle would do at the cabinet that it stands at, it must not do in the name of another.
TEST(LokereSistema, LaVisitaAChiNonCePiuFinisce) {
  Banco b;
  QList<QByteArray> dopo;
  bool cambiata = false;
  LokeraFinta sua(b.vm, u"127.0.0.2"_s, 10001, [&](const QByteArray& frame) {
    if (cambiata) dopo << frame;
    if (frame.startsWith("0001B") && !cambiata) {
      cambiata = true;
      b.sql(u"delete from parametri where ID = 1"_s);
      b.parti().partenza.trova_lokere_sistema();
    }
    return risponde_bene(frame);
  });
  LokeraFinta altra(b.vm, u"127.0.0.3"_s, 10001, risponde_bene);
  for (int i = 1; i <= 2; ++i) {
    b.lokera(i);
    b.tessera(u"000000000%1"_s.arg(i));
    b.in_coda(u"000000000%1"_s.arg(i), i);
  }
  b.main().Form_Load();
  EXPECT_TRUE(cambiata);
  EXPECT_EQ(dopo, QList<QByteArray>());
  EXPECT_EQ(b.main().corrente.id(), 2);
  EXPECT_EQ(b.parti().ciclo.grdAggOper.cella(0, u"codice"), u"0000000002"_s);
  EXPECT_EQ(b.main().lblStatusD.Caption(), u"OFF line"_s);
  EXPECT_EQ(altra.connessioni, 0);
  b.vm.esegui_per(35s);
  EXPECT_EQ(altra.connessioni, 1) << "the next visit goes to a row of the new list";
  EXPECT_EQ(sua.connessioni, 1);
}

}  // namespace
}  // namespace lokera::prova
