#include "link/sessione_download.h"

#include <gtest/gtest.h>

#include "link/protocollo.h"
#include "simulation/macchina/virtual_machine.h"

namespace lokera {
namespace {

using namespace simulazione;
using namespace Qt::StringLiterals;

using namespace std::chrono_literals;

/// A session whose cabinet answers what the test wants, frame by frame.
class SessioneTest : public ::testing::Test {
 protected:
  SessioneTest() {
    corrente.lblIndirizzoIP.Caption = u"127.000.000.002"_s;
    vm.rete().ascolta_tcp(u"127.0.0.2"_s, 10001, [this](std::shared_ptr<Canale> c) {
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

  /// As the slot counts: 0 no answer, 1 "00", 2 another code.
  static qint16 stato(const Esito<QByteArray>& risposta) {
    if (risposta.fallito()) return 0;
    return accettata(risposta) ? 1 : 2;
  }

  void arriva(const QByteArray& frame) {
    canale->invia(frame);
    vm.esegui_per(100ms);
  }
  Monotonic trascorso(Monotonic inizio) { return vm.orologio().monotono() - inizio; }

  VirtualMachine vm;
  ElencoFinestre elenco;
  Finestra finestra{elenco, u"prova"_s};
  LokeraCorrente corrente{finestra};
  Label lblLetturaTrans{finestra, u"lblLetturaTrans"_s};
  PolledWait attesa{vm.orologio(), vm.ciclo()};
  Scambio scambio;
  Machine macchina = vm.macchina();
  SessioneDownload sessione{macchina.socket, attesa, scambio, corrente, lblLetturaTrans};
  std::shared_ptr<Canale> canale;
  QList<QByteArray> ricevuti;
  QList<QByteArray> risposte;
};

TEST_F(SessioneTest, LaProvaDelCollegamentoEsceSempreDueVolte) {
  struct Caso {
    const char* nome;
    QList<QByteArray> risposte;
    qint16 esito;
    Monotonic almeno, al_massimo;
  };
  const QByteArray buona = componi_frame("0001000X");
  const QByteArray vuota = componi_frame("0001000");
  const QByteArray altra = componi_frame("0001005X");
  const Caso casi[] = {
      {"good", {buona, buona}, 0, 0s, 1s},        {"only the second", {"", buona}, 0, 2s, 4s},
      {"only the first", {buona, ""}, 0, 0s, 1s}, {"refused", {altra, altra}, 1, 4s, 6s},
      {"empty", {vuota, vuota}, 1, 4s, 6s},       {"silent", {}, 1, 4s, 6s}};
  for (const Caso& caso : casi) {
    connetti();
    ricevuti.clear();
    risposte = caso.risposte;
    const Monotonic inizio = vm.orologio().monotono();
    EXPECT_EQ(sessione.verifica_collegamento(), caso.esito) << caso.nome;
    const Monotonic durata = trascorso(inizio);
    EXPECT_TRUE(durata >= caso.almeno && durata <= caso.al_massimo) << caso.nome;
    vm.esegui_per(50ms);
    EXPECT_EQ(ricevuti.size(), 2) << caso.nome;
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
  const Caso casi[] = {{"0003000ABCDEFGHIJ31\r", 1, "ABCDEFGHIJ31", 'N', 0, 0},
                       {"000300231\r", 2, prima, 'N', 0, 0},
                       {"000310031\r", 1, prima, 'N', 0, 0},
                       {"000310331\r", 2, prima, 'N', 0, 0},
                       {"0003500001731\r", 1, "0017", 'N', 0, 0},
                       {"000370034\r", 1, prima, 'S', 0, 0},
                       {"000371434\r", 2, prima, 'N', 0, 0},
                       {"00039000002AA\r", 0, prima, 'N', 1, 0},  // handled: nothing else is done for it
                       {"000390000A231\r", 1, prima, 'N', 0, 0},  // not a number
                       {"000391400023A\r", 2, prima, 'N', 0, 0},
                       {"0003600" + QByteArray(22, '0') + '\r', 1, prima, 'N', 0, 0},  // thirty characters
                       {"0003600" + QByteArray(23, '0') + '\r', 1, prima, 'N', 0, 1},
                       {"99999xx31\r", 2, prima, 'N', 0, 0},
                       {"00031\r", 0, prima, 'N', 0, 0},  // too short for a reply code
                       {"0003100\xE0\xE8\xEC\r", 0, prima, 'N', 0, 0},
                       // Two in one: only the first is understood.
                       {"000310331"
                        "000300031\r",
                        2, prima, 'N', 0, 0}};
  int letture = 0;
  int acquisizioni = 0;
  sessione.leggi_transazioni = [&](qint16) { ++letture; };
  sessione.acquisisci_transazione = [&](const QByteArray&) { ++acquisizioni; };
  connetti();
  for (const Caso& caso : casi) {
    scambio = Scambio{};
    scambio.risposta_dati = prima;
    letture = acquisizioni = 0;
    arriva(caso.frame);
    EXPECT_EQ(std::tuple(scambio.stato_risposta, scambio.risposta_dati, scambio.conferma_transazione, letture,
                         acquisizioni),
              std::tuple(caso.stato, caso.dati, caso.conferma, caso.letture, caso.acquisizioni))
        << caso.frame.toStdString();
  }
}

// A late reply to an earlier command says nothing about the one that waits.
TEST_F(SessioneTest, SoloIlComandoPropioRiempieLAttesa) {
  const QByteArray tardiva = componi_frame("0001000X");
  struct Caso {
    const char* comando;
    QByteArray arriva;
    qint16 stato;
  };
  const Caso casi[] = {{"000310", tardiva + "000310031\r", 1},
                       {"000310", tardiva + "000310331\r", 2},
                       {"000310", tardiva, 0},
                       {"000300", "000310031\r" + tardiva, 0},
                       {"000320", tardiva + "000320531\r", 2},
                       {"000320", "000320531\r" + tardiva, 2},
                       {"000350", "000390000013B\r0003500001231\r", 1}};
  int letture = 0;
  sessione.leggi_transazioni = [&](qint16) { ++letture; };
  for (const Caso& caso : casi) {
    connetti();
    risposte = {caso.arriva};
    EXPECT_EQ(stato(sessione.scambia(componi_frame(caso.comando), 2)), caso.stato)
        << caso.comando << ' ' << caso.arriva.toStdString();
  }
  EXPECT_EQ(letture, 0) << "no read begins inside somebody's wait";
}

TEST_F(SessioneTest, UnaConfermaPerOgniRichiesta) {
  const QByteArray record = "0003600" + QByteArray(36, '0') + '\r';
  int presi = 0;
  sessione.acquisisci_transazione = [&](const QByteArray&) {
    ++presi;
    sessione.conferma_transazione();
  };
  connetti();
  arriva(record);
  EXPECT_EQ(presi, 1) << "before the first request a record is taken as it comes";
  sessione.chiedi_transazione();
  arriva("000370034\r");
  EXPECT_EQ(scambio.conferma_transazione, 'N') << "the record hasn't come yet";
  arriva(record + record);
  EXPECT_EQ(presi, 2);
  arriva("000370034\r");
  EXPECT_EQ(scambio.conferma_transazione, 'S');
  arriva(record);
  EXPECT_EQ(presi, 2);
  sessione.chiedi_transazione();
  arriva("000370034\r" + record);
  EXPECT_EQ(scambio.conferma_transazione, 'N');
  EXPECT_EQ(presi, 3);
  connetti();
  arriva(record);
  EXPECT_EQ(presi, 4);
}

// Whoever takes the session in the middle of another's exchange gets his own answer; the other gets none.
TEST_F(SessioneTest, ChiPrendeLaSessioneFinisceLoScambioDellAltro) {
  struct Caso {
    const char* nome;
    std::function<void()> prende;
    QList<QByteArray> frame;
  };
  qint16 suo = 0;
  const Caso casi[] = {
      {"closes", [&] { sessione.chiudi(); }, {"000310"}},
      {"connects", [&] { sessione.connessione_socket_download(); }, {"000310"}},
      {"exchanges", [&] { suo = stato(sessione.scambia("000350\r", 5, 4)); }, {"000310", "000350"}}};
  for (const Caso& caso : casi) {
    connetti();
    ricevuti.clear();
    risposte = {"", "000310031\r0003500001231\r"};
    const int mia = sessione.numero_connessione();
    vm.ciclo().fra(100ms, caso.prende);
    const Monotonic inizio = vm.orologio().monotono();
    EXPECT_EQ(sessione.scambia_due_volte("000310\r", 2).errore().numero, conversazione_finita) << caso.nome;
    EXPECT_LT(trascorso(inizio), 1500ms) << caso.nome;
    EXPECT_FALSE(sessione.in_corso(mia)) << caso.nome;
    vm.esegui_per(50ms);
    for (QByteArray& f : ricevuti) f.truncate(6);
    EXPECT_EQ(ricevuti, caso.frame) << caso.nome;
  }
  EXPECT_EQ(suo, 1);
}

}  // namespace
}  // namespace lokera
