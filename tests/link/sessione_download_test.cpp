#include "link/sessione_download.h"

#include <gtest/gtest.h>

#include "link/protocollo.h"
#include "simulation/virtual_machine.h"

namespace lokera {
namespace {

using namespace std::chrono_literals;

/// A session whose cabinet answers what the test wants, frame by frame.
class SessioneTest : public ::testing::Test {
 protected:
  SessioneTest() {
    lblIndirizzoIP.Caption = QStringLiteral("127.000.000.002");
    vm.rete().ascolta_tcp(QStringLiteral("127.0.0.2"), 10001, [this](std::shared_ptr<Canale> c) {
      canale = std::move(c);
      canale->Arrivo = [this](QByteArrayView dati) {
        ricevuti << dati.toByteArray();
        if (!risposte.isEmpty()) canale->invia(risposte.takeFirst());
      };
    });
  }

  void connetti() {
    sessione.connessione_socket_download();
    ASSERT_TRUE(sessione.connessa());
  }

  void arriva(const QByteArray& frame) {
    canale->invia(frame);
    vm.esegui_per(100ms);
  }

  VirtualMachine vm;
  ElencoFinestre elenco;
  Finestra finestra{elenco, QStringLiteral("prova")};
  Label lblIndirizzoIP{finestra, QStringLiteral("lblIndirizzoIP")};
  Label lblLetturaTrans{finestra, QStringLiteral("lblLetturaTrans")};
  PolledWait attesa{vm.orologio(), vm.ciclo()};
  Scambio scambio;
  Machine macchina = vm.macchina();
  SessioneDownload sessione{macchina.socket, attesa, scambio, lblIndirizzoIP, lblLetturaTrans};
  std::shared_ptr<Canale> canale;
  QList<QByteArray> ricevuti;
  QList<QByteArray> risposte;
};

TEST_F(SessioneTest, LaProvaDelCollegamentoEsceSempreDueVolte) {
  struct Caso {
    QList<QByteArray> risposte;
    qint16 esito;
    Monotonic almeno, al_massimo;
  };
  const QByteArray buona = componi_frame("0001000X");
  const QByteArray vuota = componi_frame("0001000");
  const QByteArray altra = componi_frame("0001005X");
  const Caso casi[] = {
      {{buona, buona}, 0, 0s, 1s}, {{"", buona}, 0, 2s, 4s},    {{buona, ""}, 0, 0s, 1s},
      {{altra, altra}, 1, 4s, 6s}, {{vuota, vuota}, 1, 4s, 6s}, {{}, 1, 4s, 6s},
  };
  for (const Caso& caso : casi) {
    connetti();
    ricevuti.clear();
    risposte = caso.risposte;
    const Monotonic inizio = vm.orologio().monotono();
    EXPECT_EQ(sessione.verifica_collegamento(), caso.esito);
    const Monotonic durata = vm.orologio().monotono() - inizio;
    vm.esegui_per(50ms);
    EXPECT_EQ(ricevuti.size(), 2);
    EXPECT_GE(durata, caso.almeno);
    EXPECT_LE(durata, caso.al_massimo);
  }
}

TEST_F(SessioneTest, LeDueDecisioniSuUnFrame) {
  struct Caso {
    QByteArray frame;
    qint16 stato;
    QByteArray dati;
    char conferma;
    int letture, acquisizioni;
  };
  const QByteArray prima = "prima";
  const Caso casi[] = {
      {"0003000ABCDEFGHIJ31\r", 1, "ABCDEFGHIJ31", 'N', 0, 0},
      {"000300231\r", 2, prima, 'N', 0, 0},
      {"000310031\r", 1, prima, 'N', 0, 0},
      {"000310331\r", 2, prima, 'N', 0, 0},
      {"0003500001731\r", 1, "0017", 'N', 0, 0},
      {"000370034\r", 1, prima, 'S', 0, 0},
      {"000371434\r", 2, prima, 'N', 0, 0},
      {"00039000002AA\r", 0, prima, 'N', 1, 0},  // handled: nothing else is done for it
      {"000390000A231\r", 1, prima, 'N', 0, 0},  // not a number
      {"000391400023A\r", 2, prima, 'N', 0, 0},
      {"00036" + QByteArray("00") + QByteArray(23, '0'), 1, prima, 'N', 0, 0},  // thirty characters
      {"00036" + QByteArray("00") + QByteArray(24, '0'), 1, prima, 'N', 0, 1},
      {"99999xx31\r", 2, prima, 'N', 0, 0},
      {"00031", 0, prima, 'N', 0, 0},  // too short for a reply code
      {"0003100\xE0\xE8\xEC", 0, prima, 'N', 0, 0},
  };
  int letture = 0;
  int acquisizioni = 0;
  sessione.leggi_transazioni = [&](qint16) { ++letture; };
  sessione.acquisisci_transazione = [&] { ++acquisizioni; };
  connetti();
  for (const Caso& caso : casi) {
    scambio = Scambio{};
    scambio.risposta_dati = prima;
    letture = acquisizioni = 0;
    arriva(caso.frame);
    EXPECT_EQ(scambio.stato_risposta, caso.stato) << caso.frame.toStdString();
    EXPECT_EQ(scambio.risposta_dati, caso.dati) << caso.frame.toStdString();
    EXPECT_EQ(scambio.conferma_transazione, caso.conferma) << caso.frame.toStdString();
    EXPECT_EQ(letture, caso.letture) << caso.frame.toStdString();
    EXPECT_EQ(acquisizioni, caso.acquisizioni) << caso.frame.toStdString();
  }
}

TEST_F(SessioneTest, UnaConnessionePersaFinisceLAttesaAlSuoLimite) {
  connetti();
  canale->chiudi();
  vm.esegui_per(100ms);
  EXPECT_NE(sessione.wskDownload->State(), socket_connesso);
  const Monotonic inizio = vm.orologio().monotono();
  EXPECT_EQ(sessione.scambia("0003100", 2), 0);
  EXPECT_LE(vm.orologio().monotono() - inizio, 3s);
}

TEST_F(SessioneTest, SecondoTentativoAncheDopoUnRifiuto) {
  connetti();
  risposte = {"000310331\r", "000310031\r"};
  EXPECT_EQ(sessione.scambia_due_volte(componi_frame("000310"), 2), 1);
  EXPECT_EQ(ricevuti.size(), 2);
}

}  // namespace
}  // namespace lokera
