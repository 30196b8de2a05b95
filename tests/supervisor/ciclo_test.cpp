#include "aiuti/banco.h"
#include "link/sessione_tenuta.h"

namespace lokera::prova {

using namespace Qt::StringLiterals;

namespace {

const QList<QByteArray> visita_seguente = {"00010", "00010", "00039"};
const QList<QByteArray> visita_prima = {"00010", "00010", "0001B", "00039"};

/// A console with cabinet 1, which answers well but for what the test says.
struct BancoCiclo : Banco {
  explicit BancoCiclo(int funzionamento = 0) { Banco::lokera(1, funzionamento); }
  CicloDownload& ciclo() { return parti().ciclo; }
  QString cella(const char16_t* campo, int riga = 0) { return ciclo().grdLokere.cella(riga, campo); }
  QString corrente() { return main().corrente.lblID.Caption(); }
  /// The start with its visit, to the end.
  void parte() {
    main().Form_Load();
    vm.esegui_per(1s);
  }

  /// Answers in the test's own way, or with nothing in it leaves the frame to what answers well.
  std::function<std::optional<QList<QByteArray>>(const QByteArray& codice, const QByteArray& frame)>
      altrimenti;
  LokeraFinta prima{vm, u"127.0.0.2"_s, 10001, [this](const QByteArray& f) {
                      const auto sua = altrimenti ? altrimenti(f.left(5), f) : std::nullopt;
                      return sua ? *sua : risponde_bene(f);
                    }};
};

TEST(Ciclo, UnaVisitaNormaleSulFilo) {
  BancoCiclo b;
  b.lokera(2);
  b.parte();
  frm_Main& m = b.main();
  EXPECT_EQ(b.ciclo().grdLokere.Row(), 0);  // the first visit goes to the first row
  EXPECT_EQ(b.prima.ricevuti.last(), QByteArray(frame_conta_transazioni));
  EXPECT_EQ(b.prima.comandi(), visita_prima);
  EXPECT_EQ(b.cella(u"seriale"), u"12345"_s);
  EXPECT_EQ(m.lblStatusD.Caption(), u"ON line"_s);
  EXPECT_EQ(m.lblLetturaTrans.Caption(), u"no data"_s);
  EXPECT_EQ(m.corrente.lblNome.Caption(), u"lokera 1 (0)"_s);
  b.vm.esegui_per(30s);
  EXPECT_EQ(b.corrente(), u"2"_s);
  EXPECT_EQ(m.lblStatusD.Caption(), u"OFF line"_s);
  b.vm.esegui_per(30s);
  EXPECT_EQ(b.corrente(), u"1"_s);
  EXPECT_EQ(b.prima.comandi(), visita_seguente);
}

TEST(Ciclo, OgniSecondoFallimentoUnResetEUnaRiuscitaAzzera) {
  BancoCiclo b;
  QList<QByteArray> datagrammi;
  b.vm.rete().ascolta_udp(u"127.0.0.2"_s, 3040,
                          [&](QByteArrayView dati, const auto&) { datagrammi << dati.toByteArray(); });
  bool risponde = false;
  b.altrimenti = [&](const auto&, const auto&) {
    return risponde ? std::nullopt : std::optional(QList<QByteArray>{});
  };
  b.main().Form_Load();
  const struct {
    bool riesce;
    int errori, reset;
  } visite[] = {{false, 1, 0}, {false, 0, 1}, {false, 1, 1}, {false, 0, 2},
                {false, 1, 2}, {true, 0, 2},  {false, 1, 2}, {false, 0, 3}};
  for (const auto& v : visite) {
    risponde = v.riesce;
    if (&v != visite) b.vm.esegui_per(29900ms);
    b.vm.esegui_per(100ms);
    EXPECT_EQ(b.cella(u"errori").toInt(), v.errori) << "visit " << &v - visite;
    EXPECT_EQ(b.cella(u"reset").toInt(), v.reset) << "visit " << &v - visite;
    EXPECT_EQ(datagrammi.size(), v.reset) << "visit " << &v - visite;
    EXPECT_EQ(b.main().lblLetturaTrans.Caption() == u"OFF line"_s, !v.riesce) << "visit " << &v - visite;
  }
  EXPECT_EQ(datagrammi.first(), componi_frame("00073"));
}

TEST(Ciclo, ConLaSessioneVivaUnaVisitaOgniDieciTick) {
  BancoCiclo b(1);
  const LokeraFinta viva(b.vm, u"127.0.0.2"_s, 10002);
  b.main().Form_Load();
  const std::pair<Monotonic, int> connessioni[] = {{0s, 0}, {270s, 1}, {290s, 1}, {30s, 2}, {30s, 3}};
  for (const auto& [attesa, quante] : connessioni) {
    b.vm.esegui_per(attesa);
    EXPECT_EQ(b.prima.connessioni, quante) << attesa.count();
    // From the second visit on it fails, and the next tick moves at once.
    if (attesa == 290s) b.altrimenti = [](const auto&, const auto&) { return QList<QByteArray>{}; };
  }
}

TEST(Ciclo, ConUnAltraFinestraStaFermoMaLeFasceVanno) {
  BancoCiclo b;
  b.main().Form_Load();
  const int prima = b.prima.connessioni;
  int corse = 0;
  b.ciclo().applica_fasce_orarie = [&] { ++corse; };
  {
    Finestra altra(b.console->elenco(), u"frm_tessere"_s);
    b.ciclo().mnuScarTrans_Click();
    b.vm.esegui_per(300s);
    EXPECT_EQ(b.prima.connessioni, prima);
    EXPECT_EQ(corse, 1);
    b.main().lblStatus.Caption = u"ON Line"_s;
    for (int i = 0; i < 33000; ++i) b.ciclo().TimerDownload_Timer();
    EXPECT_EQ(b.ciclo().conta_tick, CicloDownload::tick_tra_visite) << "ticks don't count without end";
  }
  b.vm.esegui_per(31s);
  EXPECT_GT(b.prima.connessioni, prima) << "with the window closed the next tick visits";
}

TEST(Ciclo, PrimaDellaCodaLeCancellazioniNonConfermate) {
  BancoCiclo b;
  b.sql(u"insert into cancellazioni_da_confermare (ID_lokera, posizione) values (1, 3)"_s);
  bool conferma = false;
  b.altrimenti = [&](const QByteArray& codice, const auto&) -> std::optional<QList<QByteArray>> {
    if (codice != "00032") return {};
    EXPECT_FALSE(b.ciclo().TimerDownload->Enabled() && conferma);
    return {{componi_frame(conferma ? "0003200" : "0003206")}};
  };
  b.parte();  // nothing is queued
  EXPECT_EQ(b.prima.comandi(), (QList<QByteArray>{"00010", "00010", "0001B", "00032", "00032", "00039"}));
  conferma = true;
  b.tessera(u"0000000001"_s);
  b.in_coda(u"0000000001"_s, 1);
  b.vm.esegui_per(35s);
  EXPECT_EQ(b.prima.comandi(), (QList<QByteArray>{"00010", "00010", "00032", "00031", "00030", "00039"}));
  b.vm.esegui_per(30s);
  EXPECT_FALSE(b.prima.comandi().contains("00032"));
}

// A record with the bands of another day could open what today is closed.
TEST(Ciclo, SenzaIlGiornoNonSiScriveNessunaTessera) {
  BancoCiclo b;
  for (const QString& t : {u"0000000001"_s, u"0000000002"_s}) b.tessera(t);
  b.in_coda(u"0000000001"_s, 1);
  b.in_coda(u"0000000002"_s, 1, u"D"_s);
  b.senza_giorni();
  b.parte();
  EXPECT_EQ(b.prima.comandi(), visita_prima);
  EXPECT_EQ(b.righe(u"select operazione from aggiorn_tessere_oper"_s), QStringList{u"I"_s})
      << "a deletion opens nothing";
  EXPECT_EQ(b.ciclo().conta_fascie, CicloDownload::tick_tra_visite - 1)
      << "the bands are tried again at once";
  EXPECT_FALSE(b.main().lblErrore.Caption().isEmpty());
}

TEST(Ciclo, UnSerialeCheNonVieneNonFermaLaVisita) {
  for (const QList<QByteArray>& risposta : {QList<QByteArray>{}, {componi_frame("0001B00ABCDEFGHIJ")}}) {
    BancoCiclo b;
    b.altrimenti = [&](const QByteArray& codice, const auto&) {
      return codice == "0001B" ? std::optional(risposta) : std::nullopt;
    };
    b.main().Form_Load();
    EXPECT_EQ(b.cella(u"seriale"), QString()) << risposta.size();
    EXPECT_EQ(b.main().lblStatusD.Caption(), u"ON line"_s) << risposta.size();
  }
}

// A window that opens in the middle of a visit has the session to itself; the visit gives back what it holds.
TEST(Ciclo, UnaFinestraPrendeLaSessioneDiUnaVisita) {
  struct Caso {
    const char* nome;
    const char* durante;  ///< the command in whose answer's place the window opens
    bool spegne;          ///< the window switches the timer off
  };
  const Caso casi[] = {{"link test", "00010", false}, {"serial", "0001B", false},
                       {"push", "00031", false},      {"push, timer off", "00031", true},
                       {"read", "00036", false},      {"read, timer off", "00036", true}};
  for (const Caso& caso : casi) {
    SCOPED_TRACE(caso.nome);
    BancoCiclo b;
    b.tessera(u"0000000001"_s);
    b.in_coda(u"0000000001"_s, 1);
    Supervisore& p = b.parti();
    frm_Main& m = b.main();
    std::unique_ptr<Finestra> finestra;
    std::optional<SessioneTenuta> tenuta;
    LokeraFinta altra(b.vm, u"127.0.0.9"_s, 10001, risponde_bene);
    const auto apri = [&] {
      finestra = std::make_unique<Finestra>(b.console->elenco(), u"frm_tessere"_s);
      tenuta.emplace(p.download, caso.spegne ? Fermi::tick : Fermi::visite);
      m.corrente.porta_a(u"9"_s, u"lokera 9"_s, u"127.000.000.009"_s);
      tenuta->connetti();
      EXPECT_TRUE(accettata(p.download.scambia(componi_frame("000350"), 5, 4)));
    };
    b.altrimenti = [&](const QByteArray& codice, const auto&) -> std::optional<QList<QByteArray>> {
      if (!finestra && codice == caso.durante) {
        b.vm.ciclo().fra(20ms, apri);
        return QList<QByteArray>{};
      }
      if (codice == "00039") return {{componi_frame("00039000002")}};
      return {};
    };
    m.Form_Load();
    b.vm.esegui_per(20s);
    EXPECT_TRUE(tenuta->mia());
    EXPECT_TRUE(p.download.connessa());
    EXPECT_EQ(altra.comandi(), QList<QByteArray>{"00035"}) << "nothing of the visit's";
    EXPECT_EQ(b.cella(u"errori"), u"0"_s);
    EXPECT_EQ(b.corrente(), u"9"_s);
    EXPECT_EQ(p.ciclo.TimerDownload->Enabled(), !caso.spegne);
    EXPECT_TRUE(m.Enabled());
    EXPECT_FALSE(p.acquisizione.shpTrans.Visible());
    const int connessioni = b.prima.connessioni;
    tenuta.reset();
    finestra.reset();
    b.vm.esegui_per(90s);
    EXPECT_EQ(b.conta(u"aggiorn_tessere_oper"_s), 1) << "this cabinet never reads a card back";
    EXPECT_GT(b.prima.connessioni, connessioni) << "the next tick visits as ever";
  }
}

// Where the cursor goes, or where the list is made anew, is no business of the visit that is under way.
TEST(Ciclo, UnaVisitaTieneLaSuaRiga) {
  for (const bool rifatta : {false, true}) {
    BancoCiclo b;
    b.lokera(2);
    b.lokera(3);
    b.altrimenti = [&](const QByteArray& codice, const auto&) {
      if (codice == "00010") b.ciclo().grdLokere.Row(2);
      if (codice == "00010" && rifatta) {
        b.sql(u"delete from parametri where ID = 2"_s);
        b.parti().partenza.trova_lokere_sistema();
      }
      return std::nullopt;
    };
    b.main().Form_Load();
    EXPECT_EQ(b.cella(u"seriale"), u"12345"_s) << rifatta;
    for (int riga = 1; riga < b.ciclo().grdLokere.Rows(); ++riga)
      EXPECT_EQ(b.cella(u"seriale", riga), QString()) << rifatta;
  }
}

}  // namespace
}  // namespace lokera::prova
