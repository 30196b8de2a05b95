#include "simulation/macchina/virtual_network.h"

#include <gtest/gtest.h>

#include "simulation/macchina/virtual_machine.h"

namespace lokera::simulazione {
namespace {

using namespace std::chrono_literals;

const QString indirizzo = u"127.0.0.2"_s;
const QByteArray comando = "0001B7A\r";
const QByteArray risposta = "0001B00000000123472\r";

/// A console's socket that dials one cabinet, which answers everything that comes with the same frame.
struct Banco {
  explicit Banco(quint64 seme = 1, const Guasti& guasti = {})
      : pc(seme), socket(pc.macchina().socket.crea_winsock()) {
    pc.rete().guasti(guasti);
    pc.rete().ascolta_tcp(indirizzo, 10001, [this](auto nuovo) {
      canale = std::move(nuovo);
      canale->Arrivo = [this](QByteArrayView) { canale->invia(risposta); };
      canale->Caduta = [this] { ++cadute; };
    });
    pc.rete().traccia = [this](const QString& riga) {
      const QStringList campi = riga.split(u' ');
      if (campi.at(1) == u"<") pezzi.append(QByteArray::fromPercentEncoding(campi.last().toLatin1()));
    };
    socket->DataArrival = [this](qsizetype) {
      arrivi.append(socket->GetData());
      quando.append(pc.orologio().monotono() - mandato);
    };
  }
  ~Banco() {
    if (canale) canale->Arrivo = nullptr;
  }
  Q_DISABLE_COPY_MOVE(Banco)

  bool connetti(quint16 porta = 10001) {
    socket->Connect(indirizzo, porta);
    pc.esegui_per(1s);
    return socket->State() == socket_connesso;
  }
  void manda(int volte, Monotonic ogni = 20s) {
    for (int i = 0; i < volte; ++i) {
      mandato = pc.orologio().monotono();
      socket->SendData(comando);
      pc.esegui_per(ogni);
    }
  }

  VirtualMachine pc;
  std::unique_ptr<Winsock> socket;
  std::shared_ptr<Canale> canale;
  QByteArrayList arrivi;
  QByteArrayList pezzi;  ///< as they came over the wire
  QList<Monotonic> quando;
  Monotonic mandato{};
  int cadute = 0;
};

TEST(VirtualNetwork, each_fault_shows) {
  struct Prova {
    const char* nome;
    Guasti guasti;
    bool connesso;
    qsizetype arrivi;  ///< good answers to twenty commands; -1 for fewer than all
    std::function<bool(const Banco&)> altro = [](const Banco&) { return true; };
    Monotonic ogni = 20s;
  };
  const Prova prove[] = {
      {"none", {}, true, 20},
      {"rifiuta", {.rifiuta = 1000}, false, 0},
      {"muto", {.muto = 1000}, false, 0},
      {"perde", {.perde = 1000}, true, 0},
      {"ritarda",
       {.ritarda = 1000},
       true,
       20,
       [](const Banco& b) {
         const auto [presto, tardi] = std::minmax_element(b.quando.begin(), b.quando.end());
         return *presto < 3s && *tardi > 5s && *tardi < 9s;
       }},
      {"spezza", {.spezza = 1000}, true, 20, [](const Banco& b) { return b.pezzi.size() >= 40; }},
      {"unisce", {.unisce = 500}, true, 20, [](const Banco& b) { return b.pezzi.size() < 16; }, 50ms},
      {"ripete", {.ripete = 1000}, true, 40},
      {"altera",
       {.altera = 1000},
       true,
       0,
       [](const Banco& b) {
         const auto strana = [](char c) { return static_cast<uchar>(c) > 127; };
         const QByteArray insieme = b.pezzi.join();
         return b.pezzi.size() == 20 && insieme.size() == 20 * risposta.size() &&
                std::ranges::any_of(insieme, strana);
       }},
      {"cade", {.cade = 300}, false, -1, [](const Banco& b) { return b.cadute == 1; }},
  };
  for (const Prova& prova : prove) {
    Banco banco(7, prova.guasti);
    banco.connetti();
    banco.manda(20, prova.ogni);
    banco.pc.esegui_per(5s);
    EXPECT_EQ(banco.socket->State() == socket_connesso, prova.connesso) << prova.nome;
    const auto arrivi = banco.arrivi.count(risposta);
    EXPECT_TRUE(prova.arrivi < 0 ? arrivi < 20 : arrivi == prova.arrivi) << prova.nome << ": " << arrivi;
    EXPECT_TRUE(prova.altro(banco)) << prova.nome << ": " << banco.arrivi.join("|").constData();

    Banco risparmiato(7, prova.guasti);
    risparmiato.pc.rete().guasti_di(indirizzo, {});
    EXPECT_TRUE(risparmiato.connetti());
    risparmiato.manda(5);
    EXPECT_EQ(risparmiato.arrivi, QByteArrayList(5, risposta)) << prova.nome;

    Banco spento(7, prova.guasti);
    spento.pc.rete().guasti_accesi(false);
    EXPECT_TRUE(spento.connetti());
  }
}

TEST(VirtualNetwork, what_is_unanswered_or_closed_is_told_by_the_state_alone) {
  Banco banco;
  EXPECT_FALSE(banco.connetti(999));  // refused
  banco.socket->Connect(indirizzo, 10001);
  banco.socket->Close();  // before the answer
  EXPECT_EQ(banco.socket->State(), socket_chiuso);
  banco.socket->SendData(comando);
  banco.pc.esegui_per(2s);
  EXPECT_EQ(banco.socket->State(), socket_chiuso);
  EXPECT_FALSE(banco.canale);

  ASSERT_TRUE(banco.connetti());
  banco.socket->SendData(comando);
  banco.pc.ciclo().fra(3ms, [&] { banco.pc.rete().smetti(indirizzo); });  // the cabinet is switched off
  banco.pc.esegui_per(1s);
  EXPECT_NE(banco.socket->State(), socket_connesso);
  EXPECT_FALSE(banco.canale->aperto());
  EXPECT_EQ(banco.cadute, 0);
  EXPECT_FALSE(banco.connetti());  // nobody has this address now
}

}  // namespace
}  // namespace lokera::simulazione
