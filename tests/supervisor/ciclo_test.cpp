#include "aiuti/banco.h"
#include "link/protocollo.h"
#include "link/sessione_tenuta.h"

namespace lokera::prova {

using namespace Qt::StringLiterals;

namespace {

/// A cabinet that answers everything well: link test, serial, writes, an empty store.
QList<QByteArray> buona(const QByteArray& frame) {
  const QByteArray codice = frame.left(5);
  if (codice == "00010") return {componi_frame("0001000X")};
  if (codice == "0001B") return {componi_frame("0001B000000012345")};
  if (codice == "00039") return {componi_frame("00039000000")};
  return {componi_frame(codice + "00")};
}

QList<QByteArray> codici(const QList<QByteArray>& frame) {
  QList<QByteArray> testi;
  for (const QByteArray& f : frame) testi << f.left(5);
  return testi;
}

TEST(Ciclo, UnaVisitaNormaleSulFilo) {
  Banco b;
  b.lokera(1);
  b.lokera(2);
  LokeraFinta prima(b.vm, u"127.0.0.2"_s, 10001, buona);
  b.main().Form_Load();
  b.vm.esegui_per(1s);
  Supervisore& p = b.parti();
  frm_Main& m = b.main();
  EXPECT_EQ(p.ciclo.grdLokere.Row(), 0);  // the first visit goes to the first row
  EXPECT_EQ(codici(prima.ricevuti), (QList<QByteArray>{"00010", "00010", "0001B", "00039"}));
  EXPECT_EQ(prima.ricevuti.last(), QByteArray(frame_conta_transazioni));
  EXPECT_EQ(p.ciclo.grdLokere.cella(0, u"seriale"), u"12345"_s);
  EXPECT_EQ(m.lblStatusD.Caption(), u"ON line"_s);
  EXPECT_EQ(m.lblLetturaTrans.Caption(), u"no data"_s);
  EXPECT_EQ(m.corrente.lblNome.Caption(), u"lokera 1 (0)"_s);
  prima.ricevuti.clear();
  b.vm.esegui_per(30s);
  EXPECT_EQ(m.corrente.lblID.Caption(), u"2"_s);
  EXPECT_EQ(m.lblStatusD.Caption(), u"OFF line"_s);
  b.vm.esegui_per(30s);
  EXPECT_EQ(m.corrente.lblID.Caption(), u"1"_s);
  EXPECT_EQ(codici(prima.ricevuti), (QList<QByteArray>{"00010", "00010", "00039"}));
}

TEST(Ciclo, OgniSecondoFallimentoUnReset) {
  Banco b;
  b.lokera(1);
  QList<QByteArray> datagrammi;
  b.vm.rete().ascolta_udp(u"127.0.0.2"_s, 3040,
                          [&](QByteArrayView dati, const auto&) { datagrammi << dati.toByteArray(); });
  b.main().Form_Load();
  const int attesi[] = {0, 1, 1, 2, 2, 3};  // after each failed visit
  for (const int resets : attesi) {
    b.vm.esegui_per(100ms);
    EXPECT_EQ(datagrammi.size(), resets);
    EXPECT_EQ(b.parti().ciclo.grdLokere.cella(0, u"reset"), QString::number(resets));
    EXPECT_EQ(b.main().lblLetturaTrans.Caption(), u"OFF line"_s);
    b.vm.esegui_per(29900ms);
  }
  EXPECT_EQ(datagrammi.first(), componi_frame("00073"));
}

TEST(Ciclo, UnaRiuscitaInMezzoAzzeraGliErrori) {
  Banco b;
  b.lokera(1);
  bool risponde = false;
  LokeraFinta lokera(b.vm, u"127.0.0.2"_s, 10001,
                     [&](const QByteArray& f) { return risponde ? buona(f) : QList<QByteArray>{}; });
  b.main().Form_Load();
  EXPECT_EQ(b.parti().ciclo.grdLokere.cella(0, u"errori"), u"1"_s);
  risponde = true;
  b.vm.esegui_per(30s);
  EXPECT_EQ(b.parti().ciclo.grdLokere.cella(0, u"errori"), u"0"_s);
  risponde = false;
  b.vm.esegui_per(30s);
  EXPECT_EQ(b.parti().ciclo.grdLokere.cella(0, u"errori"), u"1"_s);
  EXPECT_EQ(b.parti().ciclo.grdLokere.cella(0, u"reset"), u"0"_s);
}

TEST(Ciclo, ConLaSessioneVivaUnaVisitaOgniDieciTick) {
  Banco b;
  b.lokera(1, 1);
  LokeraFinta viva(b.vm, u"127.0.0.2"_s, 10002);
  bool risponde = true;
  LokeraFinta lokera(b.vm, u"127.0.0.2"_s, 10001,
                     [&](const QByteArray& f) { return risponde ? buona(f) : QList<QByteArray>{}; });
  b.main().Form_Load();
  EXPECT_EQ(lokera.connessioni, 0);  // one tick of ten
  b.vm.esegui_per(270s);
  EXPECT_EQ(lokera.connessioni, 1);
  b.vm.esegui_per(290s);
  EXPECT_EQ(lokera.connessioni, 1);
  risponde = false;
  b.vm.esegui_per(30s);
  EXPECT_EQ(lokera.connessioni, 2);  // this one fails, and the next tick moves at once
  b.vm.esegui_per(30s);
  EXPECT_EQ(lokera.connessioni, 3);
  b.parti().ciclo.mnuScarTrans_Click();
  EXPECT_EQ(lokera.connessioni, 4);
}

TEST(Ciclo, ChiScaricaDuranteUnaVisitaNonNeIniziaUnAltra) {
  Banco b;
  b.lokera(1);
  b.lokera(2);
  LokeraFinta lokera(b.vm, u"127.0.0.2"_s, 10001, [&](const QByteArray& f) {
    if (f.left(5) == "00010") b.parti().ciclo.mnuScarTrans_Click();
    return buona(f);
  });
  b.main().Form_Load();
  EXPECT_EQ(b.main().corrente.lblID.Caption(), u"1"_s);
}

TEST(Ciclo, ConUnAltraFinestraStaFermoMaLeFasceVanno) {
  Banco b;
  b.lokera(1);
  LokeraFinta lokera(b.vm, u"127.0.0.2"_s, 10001, buona);
  b.main().Form_Load();
  const int prima = lokera.connessioni;
  int corse = 0;
  b.parti().ciclo.applica_fasce_orarie = [&] { ++corse; };
  {
    Finestra altra(b.console->elenco(), u"frm_tessere"_s);
    b.parti().ciclo.mnuScarTrans_Click();
    b.vm.esegui_per(300s);
    EXPECT_EQ(lokera.connessioni, prima);
    EXPECT_EQ(corse, 1);
  }
  b.vm.esegui_per(31s);
  EXPECT_GT(lokera.connessioni, prima);
}

TEST(Ciclo, UnaRigaDellaCodaCheFalliscaNonFermaLeAltre) {
  Banco b;
  b.lokera(1);
  for (const char16_t* t : {u"0000000001", u"0000000002", u"0000000003"}) b.tessera(QString::fromUtf16(t));
  b.in_coda(u"0000000001"_s, 1);
  b.in_coda(u"0000000002"_s, 1);
  b.in_coda(u"0000000003"_s, 1, u"D"_s);
  b.in_coda(u"0000000001"_s, 2);  // not this cabinet's
  b.in_coda(u"0000000009"_s, 1);  // no such card: not even shown
  QByteArray scritto;
  LokeraFinta lokera(b.vm, u"127.0.0.2"_s, 10001, [&](const QByteArray& f) -> QList<QByteArray> {
    if (f.left(5) == "00031") scritto = f.mid(10, 60);
    if (f.left(5) == "00031" && f.mid(10, 10) == "0000000001") return {componi_frame("0003106")};
    if (f.left(5) == "00030") return {componi_frame("0003000" + scritto)};
    return buona(f);
  });
  b.main().Form_Load();
  b.vm.esegui_per(1s);
  const SSOleDBGrid& coda = b.parti().ciclo.grdAggOper;
  ASSERT_EQ(coda.Rows(), 3);
  EXPECT_EQ(coda.cella(0, u"esito"), QString());
  EXPECT_EQ(coda.cella(1, u"esito"), u"OK"_s);
  EXPECT_EQ(coda.cella(2, u"esito"), u"OK"_s);
  EXPECT_EQ(coda.cella(1, u"descrizione"), u"operatore 0000000002"_s);
  EXPECT_EQ(b.parti().ciclo.grdLokere.cella(0, u"errori"), u"0"_s);
  EXPECT_EQ(b.conta(u"aggiorn_tessere_oper"_s), 3);
}

TEST(Ciclo, PrimaDellaCodaLeCancellazioniNonConfermate) {
  Banco b;
  b.lokera(1);
  b.sql(u"insert into cancellazioni_da_confermare (ID_lokera, posizione) values (1, 3)"_s);
  bool conferma = false;
  LokeraFinta lokera(b.vm, u"127.0.0.2"_s, 10001, [&](const QByteArray& f) -> QList<QByteArray> {
    if (f.left(5) == "00032" && !conferma) return {componi_frame("0003206")};
    EXPECT_TRUE(f.left(5) != "00032" || !b.parti().ciclo.TimerDownload->Enabled());
    return buona(f);
  });
  b.main().Form_Load();  // nothing is queued
  b.vm.esegui_per(1s);
  EXPECT_EQ(codici(lokera.ricevuti),
            (QList<QByteArray>{"00010", "00010", "0001B", "00032", "00032", "00039"}));
  conferma = true;
  b.tessera(u"0000000001"_s);
  b.in_coda(u"0000000001"_s, 1);
  lokera.ricevuti.clear();
  b.vm.esegui_per(35s);
  EXPECT_EQ(codici(lokera.ricevuti),
            (QList<QByteArray>{"00010", "00010", "00032", "00031", "00030", "00039"}));
  lokera.ricevuti.clear();
  b.vm.esegui_per(30s);
  EXPECT_FALSE(codici(lokera.ricevuti).contains("00032"));
}

// A record with the bands of another day could open what today is closed.
TEST(Ciclo, SenzaIlGiornoNonSiScriveNessunaTessera) {
  Banco b;
  b.lokera(1);
  for (const char16_t* t : {u"0000000001", u"0000000002"}) b.tessera(QString::fromUtf16(t));
  b.in_coda(u"0000000001"_s, 1);
  b.in_coda(u"0000000002"_s, 1, u"D"_s);
  b.sql(u"drop table giorni_particolari"_s);
  b.sql(u"create view giorni_particolari as select 1 as GG"_s);  // no migration mends that
  LokeraFinta lokera(b.vm, u"127.0.0.2"_s, 10001, buona);
  b.main().Form_Load();
  b.vm.esegui_per(1s);
  EXPECT_EQ(codici(lokera.ricevuti), (QList<QByteArray>{"00010", "00010", "0001B", "00039"}));
  EXPECT_EQ(b.conta(u"aggiorn_tessere_oper"_s, u"operazione = 'I'"_s), 1);
  EXPECT_EQ(b.conta(u"aggiorn_tessere_oper"_s), 1) << "a deletion opens nothing";
  EXPECT_EQ(b.parti().ciclo.conta_fascie, CicloDownload::tick_tra_visite - 1)
      << "the bands are tried again at once";
  EXPECT_FALSE(b.main().lblErrore.Caption().isEmpty());
}

TEST(Ciclo, UnSerialeCheNonVieneNonFermaLaVisita) {
  for (const char* risposta : {"", "0001B0500000012345", "0001B00ABCDEFGHIJ"}) {
    Banco b;
    b.lokera(1);
    LokeraFinta lokera(b.vm, u"127.0.0.2"_s, 10001, [&](const QByteArray& f) -> QList<QByteArray> {
      if (f.left(5) != "0001B") return buona(f);
      return *risposta ? QList<QByteArray>{componi_frame(risposta)} : QList<QByteArray>{};
    });
    b.main().Form_Load();
    EXPECT_EQ(b.parti().ciclo.grdLokere.cella(0, u"seriale"), QString()) << risposta;
    EXPECT_EQ(b.main().lblStatusD.Caption(), u"ON line"_s) << risposta;
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
    Banco b;
    b.lokera(1);
    b.tessera(u"0000000001"_s);
    b.in_coda(u"0000000001"_s, 1);
    Supervisore& p = b.parti();
    frm_Main& m = b.main();
    std::unique_ptr<Finestra> finestra;
    std::optional<SessioneTenuta> tenuta;
    LokeraFinta altra(b.vm, u"127.0.0.9"_s, 10001, buona);
    const auto apri = [&] {
      finestra = std::make_unique<Finestra>(b.console->elenco(), u"frm_tessere"_s);
      tenuta.emplace(p.download, caso.spegne ? Fermi::tick : Fermi::visite);
      m.corrente.porta_a(u"9"_s, u"lokera 9"_s, u"127.000.000.009"_s);
      tenuta->connetti();
      EXPECT_TRUE(accettata(p.download.scambia(componi_frame("000350"), 5, 4)));
    };
    LokeraFinta lokera(b.vm, u"127.0.0.2"_s, 10001, [&](const QByteArray& f) -> QList<QByteArray> {
      if (!finestra && f.left(5) == caso.durante) {
        b.vm.ciclo().fra(20ms, apri);
        return {};
      }
      if (f.left(5) == "00039") return {componi_frame("00039000002")};
      return buona(f);
    });
    m.Form_Load();
    b.vm.esegui_per(20s);
    EXPECT_TRUE(tenuta->mia());
    EXPECT_TRUE(p.download.connessa());
    EXPECT_EQ(codici(altra.ricevuti), QList<QByteArray>{"00035"}) << "nothing of the visit's";
    EXPECT_EQ(p.ciclo.grdLokere.cella(0, u"errori"), u"0"_s);
    EXPECT_EQ(m.corrente.lblID.Caption(), u"9"_s);
    EXPECT_EQ(p.ciclo.TimerDownload->Enabled(), !caso.spegne);
    EXPECT_TRUE(m.Enabled());
    EXPECT_FALSE(p.acquisizione.shpTrans.Visible());
    const int connessioni = lokera.connessioni;
    tenuta.reset();
    finestra.reset();
    b.vm.esegui_per(90s);
    EXPECT_EQ(b.conta(u"aggiorn_tessere_oper"_s), 1) << "this cabinet never reads a card back";
    EXPECT_GT(lokera.connessioni, connessioni) << "the next tick visits as ever";
  }
}

// Where the cursor goes, or where the list is made anew, is no business of the visit that is under way.
TEST(Ciclo, UnaVisitaTieneLaSuaRiga) {
  for (const bool rifatta : {false, true}) {
    Banco b;
    for (int id = 1; id <= 3; ++id) b.lokera(id);
    Supervisore& p = b.parti();
    frm_Main& m = b.main();
    LokeraFinta prima(b.vm, u"127.0.0.2"_s, 10001, [&](const QByteArray& f) {
      if (f.left(5) == "00010") {
        p.ciclo.grdLokere.Row(2);
        if (rifatta) {
          b.sql(u"delete from parametri where ID = 2"_s);
          p.partenza.trova_lokere_sistema();
        }
      }
      return buona(f);
    });
    m.Form_Load();
    EXPECT_EQ(p.ciclo.grdLokere.cella(0, u"seriale"), u"12345"_s);
    for (int riga = 1; riga < p.ciclo.grdLokere.Rows(); ++riga)
      EXPECT_EQ(p.ciclo.grdLokere.cella(riga, u"seriale"), QString());
  }
}

TEST(Ciclo, ITickNonContanoOltreQuelloCheServe) {
  Banco b;
  b.lokera(1);
  LokeraFinta lokera(b.vm, u"127.0.0.2"_s, 10001, buona);
  b.main().Form_Load();
  b.main().lblStatus.Caption = u"ON Line"_s;
  {
    Finestra altra(b.console->elenco(), u"frm_tessere"_s);
    for (int i = 0; i < 33000; ++i) b.parti().ciclo.TimerDownload_Timer();
    EXPECT_EQ(b.parti().ciclo.conta_tick, CicloDownload::tick_tra_visite);
  }
  const int prima = lokera.connessioni;
  b.vm.esegui_per(31s);
  EXPECT_GT(lokera.connessioni, prima) << "with the window closed the next tick visits";
}

TEST(Ciclo, UnLayoutSenzaLeSueColonneNonFermaLeVisite) {
  Banco b;
  b.lokera(1);
  b.lokera(2);
  b.sql(u"delete from layout_griglie where nome_form = 'frm_Main'"_s);
  for (const auto& [nr, campo] : {std::pair(1, u"descrizione"), std::pair(2, u"id")})
    b.sql(
        u"insert into layout_griglie (programma, nome_form, nome_griglia, nr_colonna, titolo_colonna, campo,"
        " larghezza, visibile, tipo_dato, caratteri) values ('Zandor', 'frm_Main', 'grdLokere', ?, ?, ?, 900,"
        " 1, 'testo', 0)"_s,
        {nr, QString::fromUtf16(campo), QString::fromUtf16(campo)});
  LokeraFinta lokera(b.vm, u"127.0.0.2"_s, 10001, buona);
  b.main().Form_Load();
  const SSOleDBGrid& grd = b.parti().ciclo.grdLokere;
  EXPECT_EQ(lokera.connessioni, 1);
  EXPECT_EQ(grd.cella(0, 0), u"lokera 1"_s);
  EXPECT_EQ(grd.cella(0, u"seriale"), u"12345"_s);
  b.vm.esegui_per(150s);
  EXPECT_EQ(grd.cella(1, u"reset"), u"1"_s) << "the other one never answers";
  EXPECT_FALSE(grd.Columns(grd.colonna(u"errori")).Visible);
}

}  // namespace
}  // namespace lokera::prova
