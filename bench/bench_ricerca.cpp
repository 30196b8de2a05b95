// A search that 200 cabinets answer within 50 ms, and a registration: on the virtual machine and with real
// datagrams over loopback. Not the waits are measured, which are the search's own, but how long the loop
// stands still.
#include <QCoreApplication>
#include <QNetworkDatagram>
#include <QTimer>
#include <QUdpSocket>

#include "adapters/base/qt_timer.h"
#include "adapters/real_machine.h"
#include "bench/ciclo_sorvegliato.h"
#include "bench/figlio.h"
#include "bench/misura.h"
#include "bench/sito_misure.h"
#include "commissioning/frm_param_lokere.h"
#include "link/porte.h"
#include "link/protocollo.h"
#include "simulation/cabinet/cabinet_server.h"
#include "simulation/macchina/virtual_machine.h"
#include "simulation/servizio/real_rete.h"
#include "supervisor/console.h"

using namespace Qt::StringLiterals;
using namespace lokera;
using namespace lokera::bench;
using namespace lokera::simulazione;

namespace {

constexpr int lokere = 200;
constexpr int note = 150;
const char* const distributore = "127.0.1.1";  // stands for the broadcast address, which loopback has not

QString indirizzo(int i) {
  return normalizza_ip(SitoMisure::indirizzo(i + 1));
}

/// The cabinets of a network, all of them on.
class Lokere {
 public:
  Lokere(Rete& rete, const Clock& orologio, TimerFactory& timer) {
    for (int i = 0; i < lokere; ++i) {
      cabinet_.push_back(std::make_unique<Cabinet>(
          Cabinet::Identita{.indirizzo = indirizzo(i),
                            .seriale = QByteArray::number(i).rightJustified(10, '0')},
          orologio, registro_));
      server_.push_back(std::make_unique<CabinetServer>(*cabinet_.back(), rete, orologio, timer));
      if (!server_.back()->apri()) rinuncia("indirizzo occupato");
    }
  }
  QByteArray risponde(int i, QByteArrayView frame) {
    return cabinet_[static_cast<size_t>(i)]->datagramma(frame);
  }

 private:
  RegistroEventi registro_;
  std::vector<std::unique_ptr<Cabinet>> cabinet_;
  std::vector<std::unique_ptr<CabinetServer>> server_;
};

void vivi(const std::function<void()>& pronto) {
  const Applicazione app;
  const QtClock orologio;
  QtTimers timer;
  RealRete rete;
  Lokere tutte(rete, orologio, timer);
  QUdpSocket socket;
  if (!socket.bind(QHostAddress(QString::fromLatin1(distributore)), porta_datagrammi))
    rinuncia("distributore");
  QObject::connect(&socket, &QUdpSocket::readyRead, &socket, [&] {
    const QNetworkDatagram d = socket.receiveDatagram();
    for (int i = 0; i < lokere; ++i)
      QTimer::singleShot(i * 50 / lokere, &socket, [&, i, d] {
        if (const QByteArray r = tutte.risponde(i, d.data()); !r.isEmpty())
          socket.writeDatagram(r, d.senderAddress(), static_cast<quint16>(d.senderPort()));
      });
  });
  pronto();
  QCoreApplication::exec();
}

/// Sends to the distributor what is meant for all.
class Socket : public QtWinsock {
 public:
  void RemoteHost(const QString& a) override {
    QtWinsock::RemoteHost(a == u"255.255.255.255"_s ? QString::fromLatin1(distributore) : a);
  }
};
class Sockets : public WinsockFactory {
 public:
  std::unique_ptr<Winsock> crea_winsock() override { return std::make_unique<Socket>(); }
};

/// Boxes that close by themselves, and when the last one came.
class Scatole : public MessageBox {
 public:
  Risposta apri(const Messaggio& m) override {
    ultima = m.testo;
    if (const auto mostrata = alla_mostra) mostrata();
    return Risposta::ok;
  }
  QString ultima;
  std::function<void()> alla_mostra;
};

/// The longest time for which a beat of 2 ms was late.
class Battito {
 public:
  Battito() {
    timer_.setTimerType(Qt::PreciseTimer);
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] {
      massimo_ = std::max(massimo_, orologio_.monotono() - ultimo_);
      ultimo_ = orologio_.monotono();
    });
    timer_.start(2);
  }
  double massimo_ms() const { return std::chrono::duration<double, std::milli>(massimo_).count(); }

 private:
  QTimer timer_;
  QtClock orologio_;
  Monotonic ultimo_ = orologio_.monotono();
  Monotonic massimo_{};
};

/// The longest turn of a loop that never waits in real time.
class CicloCronometrato : public EventLoop {
 public:
  explicit CicloCronometrato(EventLoop& ciclo) : ciclo_(ciclo) {}
  void esegui_eventi(Monotonic scadenza) override {
    massimo_ms = std::max(massimo_ms, cronometra([&] { ciclo_.esegui_eventi(scadenza); }) / 1000);
  }
  double massimo_ms = 0;

 private:
  EventLoop& ciclo_;
};

frm_param_lokere& finestra(Console& console) {
  auto* f = static_cast<frm_param_lokere*>(console.finestre().apri(u"frm_param_lokere"_s));
  if (!f) rinuncia("finestra");
  return *f;
}

void cerca(frm_param_lokere& f) {
  f.Command4_Click();
  int lette = 0;
  for (int riga = 0; riga < f.lista.grdLok.Rows(); ++riga)
    lette += f.lista.in_linea(riga) && !f.lista.grdLok.cella(riga, u"seriale").isEmpty();
  if (f.lista.grdLok.Rows() != lokere || lette != lokere) rinuncia("lokere non trovate");
}

void virtuale(const QString& cartella) {
  VirtualMachine vm;
  vm.rete().latenza(std::chrono::milliseconds(1), std::chrono::milliseconds(25));
  const Machine m = vm.macchina();
  CicloCronometrato ciclo(m.ciclo);
  Lokere tutte(vm.rete(), m.orologio, m.timer);
  CicloSorvegliato fuori(ciclo);
  Console console({m.orologio, fuori, m.timer, m.socket, m.seriali, m.messaggi, m.domande, m.file,
                   m.stampante, m.fogli, m.puntatore, m.desktop, m.programma, m.documenti});
  if (!console.apri(cartella)) rinuncia("database");
  frm_param_lokere& f = finestra(console);
  fuori.apri();
  cerca(f);
  stampa_valore("search, 200 cabinets, virtual: longest stretch",
                std::max(ciclo.massimo_ms, fuori.massimo_ms()), 50, "ms");
}

// Each one resets the cabinets, which are away for a moment.
void registra(frm_param_lokere& f, Scatole& scatole, PolledWait& attesa) {
  f.lista.grdLok.Row(0);
  Campioni fino_al_messaggio;
  for (int i = 0; i < 10; ++i) {
    attesa.attendi_oltre(0);
    f.cmdModifica_Click();
    f.pannello.txtTimeStart.Text = QString::number(10 + i);
    double ms = -1;
    const auto inizio = std::chrono::steady_clock::now();
    scatole.alla_mostra = [&] {
      if (ms < 0)
        ms = std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - inizio).count();
    };
    f.cmdRegPar_Click();
    scatole.alla_mostra = nullptr;
    if (!scatole.ultima.startsWith(u"Parametri impostati")) rinuncia(qPrintable(scatole.ultima));
    fino_al_messaggio.aggiungi(ms);
  }
  stampa_valore("registration to its message, p50", fino_al_messaggio.mediana(), 50, "ms");
  stampa_valore("registration to its message, longest", fino_al_messaggio.massimo(), 50, "ms");
}

void reale(const QString& cartella) {
  RealMachine computer;
  const Machine m = computer.macchina();
  Sockets socket;
  Scatole scatole;
  Console console({m.orologio, m.ciclo, m.timer, socket, m.seriali, scatole, m.domande, m.file, m.stampante,
                   m.fogli, m.puntatore, m.desktop, m.programma, m.documenti});
  if (!console.apri(cartella)) rinuncia("database");
  frm_param_lokere& f = finestra(console);
  const Battito battito;
  cerca(f);
  stampa_valore("search, 200 cabinets, real datagrams: longest stretch", battito.massimo_ms(), 50, "ms");
  registra(f, scatole, console.griglie().attesa);
}

}  // namespace

int main(int argc, char** argv) {
  const SitoMisure sito({.lokere = note});
  const Figlio altre(vivi);
  const QCoreApplication app(argc, argv);
  virtuale(sito.cartella());
  reale(sito.cartella());
}
