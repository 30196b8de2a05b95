#include "commissioning/banco_parametri.h"

namespace lokera::prova {
namespace {

using Ricerca = BancoParametri;

const QString gemelle =
    u"Sono presenti lokere con lo stesso indirizzo IP. Per configurarle lasciarne accese solo una alla volta!"_s;
const QString non_connessa = u"errore in connessione Winsock TCP/Ip protocol"_s;
const QByteArray ora_lokera = componi_frame("0001F00130112008075958");

LokeraFinta::Risposta seriale_e_ora(const QByteArray& seriale) {
  return [seriale](const QByteArray& frame) -> QList<QByteArray> {
    if (frame.startsWith("0001B")) return {componi_frame("0001B00" + seriale)};
    if (frame.startsWith("0001F")) return {ora_lokera};
    return {};
  };
}

// Known and silent, known and answering, its twin, and one that nobody knows.
TEST_F(Ricerca, OgniRispostaHaLaSuaRiga) {
  b.lokera(1);
  b.lokera(2);
  frm_param_lokere& f = apri();
  EXPECT_EQ(righe(), (QStringList{u"1|lokera 1|off line|127.000.000.002||||||"_s,
                                  u"2|lokera 2|off line|127.000.000.003||||||"_s}));
  EXPECT_EQ(f.pannello.txtPort.Text(), u"10001"_s);
  const LokeraFinta nota(b.vm, u"127.0.0.3"_s, 10001, seriale_e_ora("0000004711"));
  const LokeraFinta ignota(b.vm, u"127.0.0.9"_s, 10001, seriale_e_ora("0000000007"));
  a_datagrammi([](const QByteArray&) -> Risposte {
    return {scoperta("127000000003"), scoperta("127000000009"), scoperta("127000000003")};
  });
  bool vista = false;
  fra(4s, [&] {
    vista = f.avanzamento.lblSearch.Visible() && f.avanzamento.pgbRicerca.Value() > 2000;
    EXPECT_FALSE(f.lista.grdLok.Enabled() || f.Command4.Enabled() || f.cmdModifica.Enabled());
    EXPECT_EQ(f.avanzamento.lblRisposte.Caption(), u"Lokere che hanno risposto: 3"_s);
  });
  f.Command4_Click();
  EXPECT_TRUE(vista);
  EXPECT_EQ(datagrammi, Risposte{componi_frame("000A0")});
  const QString rete = u"|192.168.015.001|255.255.255.000|10001|"_s;
  const QStringList viste = righe();
  ASSERT_EQ(viste.size(), 4);
  EXPECT_EQ(viste[0], u"1|lokera 1|off line|127.000.000.002||||||"_s);
  for (const auto& [n, inizio] :
       {std::pair{1, u"2|lokera 2|on line|127.000.000.003"_s + rete + u"4711|07.59.58|08."_s},
        {2, u"||on line|127.000.000.009"_s + rete + u"7|07.59.58|08."_s},
        {3, u"||on line|127.000.000.003"_s + rete + u"4711|"_s}})
    EXPECT_TRUE(viste[n].startsWith(inizio)) << viste[n].toStdString();
  EXPECT_EQ(messaggi(), (QStringList{gemelle, gemelle}));
  EXPECT_TRUE(f.lista.grdLok.Enabled() && f.cmdModifica.Enabled() && !f.avanzamento.lblSearch.Visible());
  scegli(2);
  EXPECT_EQ(f.pannello.txtIndirizzoIP.Text(), u"127.000.000.009"_s);
  EXPECT_EQ(f.pannello.txtGateway.Text(), u"192.168.015.001"_s);
  EXPECT_EQ(f.pannello.cmbDataOra.Value(), u"1"_s);
}

TEST_F(Ricerca, QuelCheNonEUnaRispostaNonDaRighe) {
  QByteArray lunga = scoperta("127000000009");
  const QByteArray buona = lunga;
  lunga.insert(60, QByteArray(60'000, '7'));
  QByteArray bcc = buona;
  bcc[60] = 'Z';
  const struct {
    const char* nome;
    QByteArray risposta;
    int righe;
  } casi[] = {{"whole", buona, 1},
              {"wrong block check", bcc, 1},
              {"without its end", buona.first(60), 1},
              {"of 60 kB", lunga, 1},
              {"too short", buona.first(59), 0},
              {"of 19 characters", buona.first(19), 0},
              {"letters in the address", scoperta("127OOO000009"), 0},
              {"another command", componi_frame("000A1" + buona.mid(5, 55)), 0},
              {"no text", QByteArray(buona).replace(10, 1, "\xE0"), 0},
              {"empty", {}, 0}};
  frm_param_lokere& f = apri();
  QByteArray risposta;
  a_datagrammi([&](const QByteArray&) { return Risposte{risposta}; });
  for (const auto& c : casi) {
    risposta = c.risposta;
    f.Command4_Click();
    EXPECT_EQ(f.lista.grdLok.Rows(), c.righe) << c.nome;
    EXPECT_EQ(messaggi(), QStringList(c.righe, non_connessa)) << c.nome;
  }
}

// A reply on the line that is late, torn, refused or of another command leaves the columns as they are.
TEST_F(Ricerca, SenzaSerialeEOrarioLaRigaResta) {
  const struct {
    const char* nome;
    Risposte seriale;
    QString celle;
    QStringList detti;
  } casi[] = {{"silent", {}, u"|07.59.58"_s, {}},
              {"torn", {componi_frame("0001B000000004711").first(16)}, u"|07.59.58"_s, {}},
              {"letters", {componi_frame("0001B0000000047XI")}, u"|07.59.58"_s, {}},
              {"refused", {componi_frame("0001B05")}, u"|07.59.58"_s, {u"Impossibile eseguire il comando"_s}},
              {"of the other command", {ora_lokera}, u"|07.59.58"_s, {}},
              {"doubled",
               {componi_frame("0001B000000004711"), componi_frame("0001B000000009999")},
               u"4711|07.59.58"_s,
               {}}};
  frm_param_lokere& f = apri();
  a_datagrammi([](const QByteArray&) -> Risposte { return {scoperta("127000000009")}; });
  Risposte seriale;
  const LokeraFinta lokera(b.vm, u"127.0.0.9"_s, 10001, [&](const QByteArray& frame) -> Risposte {
    return frame.startsWith("0001B") ? seriale : Risposte{ora_lokera};
  });
  for (const auto& c : casi) {
    seriale = c.seriale;
    f.Command4_Click();
    EXPECT_TRUE(righe().value(0).contains(u"|10001|"_s + c.celle))
        << c.nome << ": " << righe().join(u'\n').toStdString();
    EXPECT_EQ(messaggi(), c.detti) << c.nome;
  }
}

// Asked to close in each of the waits: it closes after that one, and nothing more is sent or told.
TEST_F(Ricerca, SiChiudeDopoLAttesaInCorso) {
  const struct {
    const char* dove;
    Monotonic quando, chiusa_entro;
    QList<QByteArray> frame;
  } casi[] = {{"before the broadcast", 500ms, 1100ms, {}},
              {"while it waits for replies", 3s, 7s, {"000A0"}},
              {"while it asks for the serial number", 7500ms, 9100ms, {"000A0", "0001B"}}};
  for (const auto& c : casi) {
    SCOPED_TRACE(c.dove);
    Banco uno;
    uno.main().Form_Load();
    uno.vm.esegui_per(1s);
    QList<QByteArray> frame;
    ASSERT_TRUE(
        uno.vm.rete().ascolta_udp(u"127.0.0.9"_s, 3040, [&](QByteArrayView dati, const auto& rispondi) {
          frame << dati.first(5).toByteArray();
          rispondi(scoperta("127000000009"));
        }));
    const LokeraFinta lenta(uno.vm, u"127.0.0.9"_s, 10001, [&](const QByteArray& f) {
      frame << f.first(5);
      return QList<QByteArray>();
    });
    auto* f = static_cast<frm_param_lokere*>(uno.console->finestre().apri(u"frm_param_lokere"_s));
    uno.vm.ciclo().fra(c.quando, [&] { f->chiudi(); });
    const Monotonic inizio = uno.vm.orologio().monotono();
    f->Command4_Click();
    EXPECT_LE(uno.vm.orologio().monotono() - inizio, c.chiusa_entro);
    uno.vm.esegui_per(100ms);
    EXPECT_FALSE(uno.console->elenco().trova(u"frm_param_lokere"_s));
    uno.vm.esegui_per(10s);
    EXPECT_EQ(frame, c.frame);
    EXPECT_EQ(uno.vm.messaggi().testi(), QStringList());
  }
}

}  // namespace
}  // namespace lokera::prova
