#include "cards/invio_tessere.h"

#include "aiuti/banco.h"
#include "link/protocollo.h"

namespace lokera::prova {
namespace {

const QString t1 = QStringLiteral("0000000001");
const QString t2 = QStringLiteral("0000000002");

/// A cabinet that keeps what is written into it, or answers as the test says.
class InvioTest : public ::testing::Test {
 protected:
  InvioTest()
      : lokera(b.vm, QStringLiteral("127.0.0.2"), 10001,
               [this](const QByteArray& f) { return risposta(f); }) {
    b.tessera(t1);
    b.tessera(t2);
    b.main().lblID.Caption = QStringLiteral("1");
    b.main().lblIndirizzoIP.Caption = QStringLiteral("127.000.000.002");
    b.main().download.connessione_socket_download();
    EXPECT_TRUE(b.main().download.connessa());
  }

  QList<QByteArray> risposta(const QByteArray& frame) {
    const QByteArray codice = frame.left(5);
    if (muta) return {};
    if (codice == "00031") scritto = frame.mid(10, frame.size() - 13);
    if (codice == "00030") return {componi_frame("0003000" + rilettura.value_or(scritto) + "XX")};
    return {componi_frame(codice + rifiuto.value_or("00"))};
  }

  qint16 invia(const QString& codice) { return b.main().invio.invia_record_operatore(codice, posizione, 0); }
  qint16 cancella(const QString& codice) {
    return b.main().invio.cancella_operatore_lokera(codice, posizione, 0);
  }

  Banco b;
  bool muta = false;
  std::optional<QByteArray> rilettura, rifiuto;
  QByteArray scritto;
  qint32 posizione = -1;
  LokeraFinta lokera;
};

TEST_F(InvioTest, ScriveRileggeELiberaLaCoda) {
  b.in_coda(t1, 1);
  b.in_coda(t1, 2);
  EXPECT_EQ(invia(t1), 0);
  EXPECT_EQ(posizione, 0);
  ASSERT_EQ(lokera.ricevuti.size(), 2);
  EXPECT_EQ(lokera.ricevuti[0], componi_frame("0003100000" + t1.toLatin1() + QByteArray(50, '0')));
  EXPECT_EQ(lokera.ricevuti[1], componi_frame("0003000000"));
  EXPECT_EQ(b.conta(QStringLiteral("aggiorn_tessere_oper")), 1);
}

TEST_F(InvioTest, LaPosizioneLiberaPiuBassa) {
  for (const int p : {0, 1, 3})
    b.sql(
        QStringLiteral("insert into posiz_tessere_oper (ID_tessera, ID_lokera, posizione) values (?, 1, ?)"),
        {QStringLiteral("90000000%1").arg(p, 2, 10, QLatin1Char('0')), p});
  EXPECT_EQ(invia(t1), 0);
  EXPECT_EQ(posizione, 2);
  EXPECT_EQ(invia(t2), 0);
  EXPECT_EQ(posizione, 4);
  EXPECT_EQ(invia(t1), 0);  // keeps its place for good
  EXPECT_EQ(posizione, 2);
  EXPECT_EQ(b.conta(QStringLiteral("posiz_tessere_oper")), 5);
}

TEST_F(InvioTest, CioCheFallisceRestaInCodaMaTieneIlPosto) {
  struct Caso {
    const char* nome;
    bool muta;
    std::optional<QByteArray> rifiuto, rilettura;
    int frame;
  };
  const Caso casi[] = {
      {"silent", true, {}, {}, 2},
      {"refused twice", false, "03", {}, 2},
      {"reads back another record", false, {}, "9999999999" + QByteArray(50, '0'), 2},
      {"reads back half a record", false, {}, "0000000001", 2},
  };
  b.in_coda(t1, 1);
  for (const Caso& caso : casi) {
    muta = caso.muta;
    rifiuto = caso.rifiuto;
    rilettura = caso.rilettura;
    lokera.ricevuti.clear();
    EXPECT_EQ(invia(t1), 1) << caso.nome;
    EXPECT_EQ(lokera.ricevuti.size(), caso.frame) << caso.nome;
    EXPECT_EQ(b.conta(QStringLiteral("aggiorn_tessere_oper")), 1) << caso.nome;
    EXPECT_EQ(b.conta(QStringLiteral("posiz_tessere_oper")), 1) << caso.nome;
  }
}

TEST_F(InvioTest, UnaMascheraCheNonSiCalcolaNonSiInvia) {
  b.in_coda(t1, 1);
  b.sql(QStringLiteral("alter table gruppi_tessera rename to via"));
  EXPECT_EQ(invia(t1), 1);
  EXPECT_TRUE(lokera.ricevuti.isEmpty());
  EXPECT_EQ(b.conta(QStringLiteral("aggiorn_tessere_oper")), 1);
}

TEST_F(InvioTest, UnRecordDiChiaveNonHaMaschera) {
  posizione = 7;
  EXPECT_EQ(b.main().invio.invia_record_operatore(QStringLiteral("1000000007"), posizione, record_chiave), 0);
  EXPECT_EQ(lokera.ricevuti[0], componi_frame("00031100071000000007"));
  EXPECT_EQ(b.conta(QStringLiteral("posiz_tessere_oper")), 0);
}

TEST_F(InvioTest, LaTesseraLasciaIlRegistroConLUltimaLokera) {
  b.abilita(t1, 1);
  EXPECT_EQ(invia(t1), 0);
  b.in_coda(t1, 1, QStringLiteral("D"));
  b.in_coda(t1, 2, QStringLiteral("D"));
  lokera.ricevuti.clear();
  EXPECT_EQ(cancella(t1), 0);
  EXPECT_EQ(lokera.ricevuti, QList<QByteArray>{componi_frame("0003200000")});
  EXPECT_EQ(b.conta(QStringLiteral("tessere_operatori")), 2);  // another cabinet still has it pending
  b.main().lblID.Caption = QStringLiteral("2");
  EXPECT_EQ(cancella(t1), 0);  // never was there: no frame, and the last cabinet is served
  EXPECT_EQ(lokera.ricevuti.size(), 1);
  EXPECT_EQ(b.conta(QStringLiteral("tessere_operatori")), 1);
  EXPECT_EQ(b.conta(QStringLiteral("gruppi_tessera")), 0);
}

TEST_F(InvioTest, UnaCancellazioneSenzaRispostaLiberaSubitoIlPosto) {
  EXPECT_EQ(invia(t1), 0);
  b.in_coda(t1, 1, QStringLiteral("D"));
  muta = true;
  lokera.ricevuti.clear();
  EXPECT_EQ(cancella(t1), 1);
  EXPECT_EQ(lokera.ricevuti.size(), 2);
  EXPECT_EQ(b.conta(QStringLiteral("posiz_tessere_oper")), 0);
  EXPECT_EQ(b.conta(QStringLiteral("aggiorn_tessere_oper")), 1);
  EXPECT_EQ(cancella(t1), 0);  // the next turn finds no row and counts as done
  EXPECT_EQ(b.conta(QStringLiteral("aggiorn_tessere_oper")), 0);
  EXPECT_EQ(b.conta(QStringLiteral("tessere_operatori")), 1);
}

}  // namespace
}  // namespace lokera::prova
