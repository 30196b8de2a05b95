#include "cards/invio_tessere.h"

#include "aiuti/banco.h"

namespace lokera::prova {
namespace {

using namespace Qt::StringLiterals;

const QString t1 = u"0000000001"_s;
const QString t2 = u"0000000002"_s;

/// A cabinet that keeps what is written into it, or answers as the test says.
class InvioTest : public ::testing::Test {
 protected:
  InvioTest() : lokera(b.vm, u"127.0.0.2"_s, 10001, [this](const QByteArray& f) { return risposta(f); }) {
    b.tessera(t1);
    b.tessera(t2);
    b.main().corrente.porta_a(u"1"_s, u"lokera 1"_s, u"127.000.000.002"_s);
    b.parti().download.connessione_socket_download();
    EXPECT_TRUE(b.parti().download.connessa());
  }

  QList<QByteArray> risposta(const QByteArray& frame) {
    const QByteArray codice = frame.left(5);
    if (codice == momento) std::exchange(intanto, nullptr)();
    if (muta) return {};
    if (codice == "00031") scritto = frame.mid(10, frame.size() - 13);
    if (codice == "00030") return {componi_frame("0003000" + rilettura.value_or(scritto) + "XX")};
    return {componi_frame(codice + rifiuto.value_or("00"))};
  }

  qlonglong in_coda() { return b.conta(u"aggiorn_tessere_oper"_s); }
  qlonglong posti() { return b.conta(u"posiz_tessere_oper"_s); }
  qlonglong da_confermare() { return b.conta(u"cancellazioni_da_confermare"_s); }
  qint16 ripeti() { return b.parti().invio.ripeti_cancellazioni(); }
  qint16 invia(const QString& codice) { return b.parti().invio.invia_record_operatore(codice, posizione, 0); }
  qint16 cancella(const QString& codice) {
    return b.parti().invio.cancella_operatore_lokera(codice, posizione, 0);
  }

  /// Once, when the cabinet has received a frame of this code and before it answers.
  void durante(const QByteArray& codice, std::function<void()> che_cosa) {
    momento = codice;
    intanto = [this, fa = std::move(che_cosa)] {
      momento.clear();
      fa();
    };
  }
  /// The deletion of `codice` at position 0 stays without an answer.
  void cancella_invano(const QString& codice) {
    EXPECT_EQ(invia(codice), 0);
    b.in_coda(codice, 1, u"D"_s);
    muta = true;
    lokera.ricevuti.clear();
    EXPECT_EQ(cancella(codice), 1);
    muta = false;
  }

  Banco b;
  QByteArray momento;
  std::function<void()> intanto;
  bool muta = false;
  std::optional<QByteArray> rilettura, rifiuto;
  QByteArray scritto;
  qint32 posizione = -1;
  LokeraFinta lokera;
};

TEST_F(InvioTest, ScriveRileggeELiberaLaCoda) {
  for (const int p : {0, 1, 3})
    b.sql(u"insert into posiz_tessere_oper (ID_tessera, ID_lokera, posizione) values (?, 1, ?)"_s,
          {u"900000000%1"_s.arg(p), p});
  b.in_coda(t1, 1);
  b.in_coda(t1, 2);
  for (const auto& [codice, posto] : {std::pair(t1, 2), {t2, 4}, {t1, 2}}) {  // keeps its place for good
    EXPECT_EQ(invia(codice), 0);
    EXPECT_EQ(posizione, posto) << "the lowest free one";
  }
  EXPECT_EQ(posti(), 5);
  EXPECT_EQ(lokera.ricevuti.first(2),
            (QList{componi_frame("0003100002" + t1.toLatin1() + QByteArray(50, '0')),
                   componi_frame("0003000002")}));
  EXPECT_EQ(b.coda(), u"0000000001|2|I"_s);
  lokera.ricevuti.clear();
  posizione = 7;
  EXPECT_EQ(b.parti().invio.invia_record_operatore(u"1000000007"_s, posizione, record_chiave), 0);
  EXPECT_EQ(lokera.ricevuti[0], componi_frame("00031100071000000007")) << "a key has no mask";
  EXPECT_EQ(posti(), 5);
}

TEST_F(InvioTest, CioCheFallisceRestaInCodaMaTieneIlPosto) {
  struct Caso {
    const char* nome;
    bool muta;
    std::optional<QByteArray> rifiuto, rilettura;
  };
  const Caso casi[] = {{"silent", true, {}, {}},
                       {"refused twice", false, "03", {}},
                       {"reads back another record", false, {}, "9999999999" + QByteArray(50, '0')},
                       {"reads back half a record", false, {}, "0000000001"}};
  b.in_coda(t1, 1);
  for (const Caso& caso : casi) {
    std::tie(muta, rifiuto, rilettura) = std::tie(caso.muta, caso.rifiuto, caso.rilettura);
    lokera.ricevuti.clear();
    EXPECT_EQ(invia(t1), 1) << caso.nome;
    EXPECT_EQ(lokera.ricevuti.size(), 2) << caso.nome;
    EXPECT_EQ(in_coda(), 1) << caso.nome;
    EXPECT_EQ(posti(), 1) << caso.nome;
  }
  lokera.ricevuti.clear();
  b.sql(u"alter table gruppi_tessera rename to via"_s);
  EXPECT_EQ(invia(t1), 1) << "no mask, nothing to send";
  EXPECT_TRUE(lokera.ricevuti.isEmpty());
  EXPECT_EQ(in_coda(), 1);
}

TEST_F(InvioTest, UnaCancellazioneNonConfermataSiRipete) {
  struct Caso {
    const char* nome;
    bool muta;
    const char* risposta;
    int frame;
    qlonglong aperte;
  };
  const Caso casi[] = {{"silent", true, "00", 2, 1},
                       {"refused", false, "03", 2, 1},
                       {"no such record", false, "14", 2, 0},
                       {"confirmed", false, "00", 1, 0}};
  for (const Caso& caso : casi) {
    b.sql(u"delete from cancellazioni_da_confermare"_s);
    cancella_invano(t1);
    EXPECT_EQ(lokera.ricevuti, QList<QByteArray>(2, componi_frame("0003200000")));
    EXPECT_EQ(posti(), 0) << "its place is free at once";
    EXPECT_EQ(in_coda(), 1);
    EXPECT_EQ(cancella(t1), 0) << "the next turn finds no row and counts as done";
    EXPECT_EQ(lokera.ricevuti.size(), 2);
    EXPECT_EQ(in_coda(), 0);
    EXPECT_EQ(b.conta(u"tessere_operatori"_s), 1);
    b.tessera(t1);
    muta = caso.muta;
    rifiuto = caso.risposta;
    lokera.ricevuti.clear();
    EXPECT_EQ(ripeti(), caso.aperte) << caso.nome;
    EXPECT_EQ(lokera.ricevuti, QList<QByteArray>(caso.frame, componi_frame("0003200000"))) << caso.nome;
    EXPECT_EQ(da_confermare(), caso.aperte) << caso.nome;
    muta = false;
    rifiuto.reset();
  }
  lokera.ricevuti.clear();
  EXPECT_EQ(ripeti(), 0);
  EXPECT_TRUE(lokera.ricevuti.isEmpty());
  b.sql(u"insert into cancellazioni_da_confermare (ID_lokera, posizione) values (1, 0), (1, 1), (1, 2)"_s);
  muta = true;
  EXPECT_EQ(ripeti(), 1);
  EXPECT_EQ(lokera.ricevuti.size(), 2) << "a silent cabinet is not asked for all of them";
}

TEST_F(InvioTest, NonSiCancellaChiHaPresoIlPosto) {
  cancella_invano(t1);
  b.in_coda(t2, 1);
  rilettura = "9999999999";
  EXPECT_EQ(invia(t2), 1);
  EXPECT_EQ(posizione, 0);
  rilettura.reset();
  lokera.ricevuti.clear();
  rifiuto = "03";
  EXPECT_EQ(ripeti(), 1);  // its own writing still waits: it comes after
  EXPECT_EQ(lokera.ricevuti.size(), 2);
  rifiuto.reset();
  b.sql(u"update aggiorn_tessere_oper set operazione = 'D' where ID_tessera = ?"_s, {t2});
  EXPECT_EQ(ripeti(), 0);
  b.sql(u"delete from aggiorn_tessere_oper where ID_tessera = ?"_s, {t2});
  EXPECT_EQ(ripeti(), 0);
  EXPECT_EQ(lokera.ricevuti.size(), 2);  // its record may lie there
  EXPECT_EQ(da_confermare(), 1);
  EXPECT_EQ(invia(t2), 0);
  EXPECT_EQ(da_confermare(), 0);
}

TEST_F(InvioTest, CioCheCambiaMentreLaLokeraRispondeRestaInCoda) {
  struct Caso {
    const char* nome;
    QByteArray durante;
    QString istruzione, operazione;
  };
  b.chiave(u"1000000001"_s, 1, 0, 5);
  const QString elimina = u"update aggiorn_tessere_oper set operazione = 'D'"_s;
  const QString registra = u"update aggiorn_tessere_oper set operazione = 'I'"_s;
  const QString gruppo = u"insert into gruppi_tessera (tessera, codice) values ('0000000001', 5)"_s;
  const QString uguale = u"update aggiorn_tessere_oper set operazione = operazione"_s;
  const Caso casi[] = {{"deleted while it was written", "00031", elimina, u"D"_s},
                       {"deleted while it was read back", "00030", elimina, u"D"_s},
                       {"another group meanwhile", "00030", gruppo, u"I"_s},
                       {"nothing new", "00030", uguale, QString()},
                       {"registered while it was deleted", "00032", registra, u"I"_s}};
  for (const Caso& caso : casi) {
    const bool scrive = caso.durante != "00032";
    b.sql(u"delete from aggiorn_tessere_oper"_s);
    b.in_coda(t1, 1, scrive ? u"I"_s : u"D"_s);
    durante(caso.durante, [&] { b.sql(caso.istruzione); });
    EXPECT_EQ(scrive ? invia(t1) : cancella(t1), 0) << caso.nome;
    EXPECT_EQ(b.uno(u"select operazione from aggiorn_tessere_oper"_s).toString(), caso.operazione)
        << caso.nome;
    EXPECT_EQ(b.conta(u"tessere_operatori"_s), 2) << caso.nome;
  }
}

TEST_F(InvioTest, SoloCioCheLaCodaDiceAdessoETuttoONiente) {
  QStringList detti;
  b.parti().invio.segnala = [&](const Errore& e) { detti << e.descrizione; };
  b.in_coda(t1, 1, u"I"_s);
  EXPECT_EQ(cancella(t1), 1) << "the queue says the opposite now";
  b.sql(u"update aggiorn_tessere_oper set operazione = 'D'"_s);
  EXPECT_EQ(invia(t1), 1) << "the queue says the opposite now";
  EXPECT_TRUE(lokera.ricevuti.isEmpty());
  EXPECT_EQ(posti(), 0);
  EXPECT_EQ(detti, QStringList());
  b.sql(u"alter table gruppi_tessera rename to via"_s);
  EXPECT_EQ(cancella(t1), 1);
  EXPECT_EQ(detti.size(), 1);
  EXPECT_EQ(in_coda(), 1);
  EXPECT_EQ(b.conta(u"tessere_operatori"_s), 2);
}

TEST_F(InvioTest, SuUnaConnessioneDiAltriNonSiInviaNulla) {
  EXPECT_EQ(invia(t1), 0);
  b.sql(u"insert into cancellazioni_da_confermare (ID_lokera, posizione) values (1, 7)"_s);
  const std::pair<QByteArray, std::function<qint16()>> operazioni[] = {
      {"00031", [&] { return invia(t1); }},
      {"00030", [&] { return invia(t1); }},
      {"00032", [&] { return cancella(t1); }},
      {"00032", [&] { return ripeti(); }}};
  for (const bool risponde : {false, true}) {
    for (const auto& [ultimo, operazione] : operazioni) {
      b.sql(u"delete from aggiorn_tessere_oper"_s);
      b.in_coda(t1, 1, ultimo == "00032" ? u"D"_s : u"I"_s);
      const QString prima = b.coda();
      lokera.ricevuti.clear();
      durante(ultimo, [&] {
        muta = true;
        b.vm.ciclo().fra(100ms, [&] {
          b.parti().download.connessione_socket_download();
          // A good answer on the new connection is none to what was asked on the old one.
          muta = !risponde;
          (void)b.parti().download.verifica_collegamento();
        });
      });
      EXPECT_EQ(operazione(), 1) << ultimo.constData();
      muta = false;
      b.vm.esegui_per(10s);
      lokera.ricevuti.removeIf([](const QByteArray& f) { return f.startsWith("00010"); });
      ASSERT_FALSE(lokera.ricevuti.isEmpty());
      EXPECT_TRUE(lokera.ricevuti.last().startsWith(ultimo)) << ultimo.constData();
      EXPECT_EQ(lokera.ricevuti.count(lokera.ricevuti.last()), 1) << ultimo.constData();
      EXPECT_EQ(b.coda(), prima) << ultimo.constData();
      EXPECT_EQ(b.conta(u"cancellazioni_da_confermare"_s, u"posizione = 7"_s), 1);
    }
  }
}

}  // namespace
}  // namespace lokera::prova
