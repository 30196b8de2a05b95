// The live answers, from the request on the socket to the reply on the socket, as the cabinet sees them. The
// console, a cabinet with a full store and the cabinet that asks are three processes.
#include <QCoreApplication>
#include <QTcpSocket>
#include <QTimer>

#include <arpa/inet.h>
#include <array>
#include <netinet/tcp.h>
#include <sys/socket.h>
#include <thread>
#include <unistd.h>

#include "adapters/real_machine.h"
#include "bench/figlio.h"
#include "bench/lokera_misure.h"
#include "bench/misura.h"
#include "bench/nudo.h"
#include "bench/sito_misure.h"
#include "link/protocollo.h"
#include "platform/momento.h"
#include "supervisor/console.h"

using namespace lokera;
using namespace lokera::bench;
using namespace Qt::StringLiterals;

namespace {

constexpr int giri = 3000;
constexpr int giri_in_lettura = 600;
constexpr quint16 porta_viva = 10002;
constexpr quint16 porta_nuda = 10012;

QString oggi() {
  return nome_giorno(QDate::currentDate().dayOfWeek());
}

/// The six queries of a withdrawal by hand, each with the text of what the rules read of it.
class SeiQuery {
 public:
  explicit SeiQuery(const QString& file) : nudo_(file), giorno_(oggi().toUtf8()) {}

  void esegui(const QByteArray& frame) {
    const QByteArray chiave = frame.mid(18, 10);
    const QDateTime adesso = come_si_legge(QDateTime::currentDateTime());
    const QByteArray minuto = "1899-12-30 " + adesso.toString(u"HH:mm:00"_s).toLatin1();
    const QDate data = adesso.date();
    chiave_.lega(1, chiave).leggi_tutto();
    gruppo_.lega(1, tessera_).lega(2, qlonglong(1)).leggi_tutto();
    for (const int anno : {data.year(), 0})
      speciale_.lega(1, qlonglong(data.day()))
          .lega(2, qlonglong(data.month()))
          .lega(3, qlonglong(anno))
          .leggi_tutto();
    fascia_.lega(1, giorno_).lega(2, qlonglong(1)).lega(3, qlonglong(1)).leggi_tutto();
    ora_.lega(1, giorno_)
        .lega(2, qlonglong(1))
        .lega(3, qlonglong(1))
        .lega(4, minuto)
        .lega(5, minuto)
        .leggi_tutto();
  }

 private:
  Nudo nudo_;
  QByteArray giorno_;
  QByteArray tessera_ = SitoMisure::tessera(7).toLatin1();
  Istruzione chiave_{nudo_, "select * from tessere_chiavi where codice = ?"};
  Istruzione gruppo_{nudo_, "select * from gruppi_tessera where tessera = ? and codice = ?"};
  Istruzione speciale_{nudo_, "select * from giorni_particolari where GG = ? and MM = ? and AAAA = ?"};
  Istruzione fascia_{
      nudo_, "select * from fascie_orarie where giorno = ? and gruppo_oper = ? and gruppo_chiavi = ?"};
  Istruzione ora_{nudo_,
                  "select * from fascie_orarie where giorno = ? and gruppo_oper = ? and gruppo_chiavi = ? and"
                  " dalle_ore <= ? and alle_ore >= ?"};
};

/// The console's process: the console itself, and the bare peer that it is compared with.
class LatoConsole {
 public:
  LatoConsole(const SitoMisure& sito, const QString& copia) : query_(copia), console_(computer_.macchina()) {
    if (!console_.apri(sito.cartella())) rinuncia("console");
    QObject::connect(&nudo_, &QTcpSocket::readyRead, &nudo_, [this] {
      const QByteArray frame = nudo_.readAll();
      query_.esegui(frame);
      nudo_.write(frame);
      nudo_.flush();
    });
    nudo_.connectToHost(normalizza_ip(SitoMisure::indirizzo(1)), porta_nuda);
    main().corrente.porta_a(u"1"_s, u"lokera 1"_s, SitoMisure::indirizzo(1));
    parti().slave.connessione_socket();
    nudo_.setSocketOption(QAbstractSocket::LowDelayOption, 1);
  }
  /// Reads the whole store of the second cabinet. The labels name the first one all the while, so that its
  /// requests are decided as ever.
  void leggi_altra_lokera() {
    main().corrente.lblIndirizzoIP.Caption = SitoMisure::indirizzo(2);
    parti().download.connessione_socket_download();
    if (!parti().download.connessa()) rinuncia("seconda lokera");
    parti().acquisizione.leggi_transazioni(9999);
  }

 private:
  frm_Main& main() { return console_.principale(); }
  Supervisore& parti() { return console_.parti(); }

  SeiQuery query_;
  QTcpSocket nudo_;
  RealMachine computer_;
  Console console_;
};

void vivi_console(const SitoMisure& sito, const QString& copia, bool legge,
                  const std::function<void()>& pronto) {
  const Applicazione app;
  LatoConsole lato(sito, copia);
  QTimer::singleShot(legge ? 1500 : 0, pronto);
  if (legge) lato.leggi_altra_lokera();
  QCoreApplication::exec();
}

/// The cabinet's end of one connection, with nothing between it and the kernel.
class Presa {
 public:
  explicit Presa(quint16 porta) : ascolto_(::socket(AF_INET, SOCK_STREAM, 0)) {
    sockaddr_in a{};
    a.sin_family = AF_INET;
    a.sin_port = htons(porta);
    ::inet_pton(AF_INET, qPrintable(normalizza_ip(SitoMisure::indirizzo(1))), &a.sin_addr);
    const int si = 1;
    ::setsockopt(ascolto_, SOL_SOCKET, SO_REUSEADDR, &si, sizeof si);
    if (::bind(ascolto_, reinterpret_cast<sockaddr*>(&a), sizeof a) != 0 || ::listen(ascolto_, 4) != 0)
      rinuncia("indirizzo occupato");
  }
  ~Presa() {
    ::close(filo_);
    ::close(ascolto_);
  }
  Presa(const Presa&) = delete;
  Presa& operator=(const Presa&) = delete;

  void accetta() {
    ::close(filo_);
    filo_ = ::accept(ascolto_, nullptr, nullptr);
    const int si = 1;
    ::setsockopt(filo_, IPPROTO_TCP, TCP_NODELAY, &si, sizeof si);
  }
  QByteArray chiedi(const QByteArray& frame, Campioni& tempi) {
    std::array<char, 256> arrivo{};
    ssize_t n = 0;
    tempi.aggiungi(cronometra([&] {
      (void)!::send(filo_, frame.constData(), static_cast<size_t>(frame.size()), 0);
      n = ::recv(filo_, arrivo.data(), arrivo.size(), 0);
    }));
    return {arrivo.data(), std::max<ssize_t>(n, 0)};
  }

 private:
  int ascolto_;
  int filo_ = -1;
};

/// A card is shown, a key is taken, the end is reported.
struct Prelievo {
  QByteArray tessera = componi_frame(
      "0009000"
      "0000000000"
      "1" +
      SitoMisure::tessera(7).toLatin1());
  QByteArray chiave = componi_frame(
      "0009100"
      "0000000000"
      "1" +
      SitoMisure::chiave(0).toLatin1());
  QByteArray fine;
  Campioni c90, c91, c92;

  explicit Prelievo(const char* esito)
      : fine(componi_frame(QByteArray("000920"
                                      "0000000000"
                                      "0") +
                           esito)) {}

  void compi(Presa& presa) {
    if (!presa.chiedi(tessera, c90).startsWith("00090001")) rinuncia("tessera rifiutata");
    if (!presa.chiedi(chiave, c91).startsWith("00091001")) rinuncia("chiave rifiutata");
  }
  void concludi(Presa& presa) {
    if (presa.chiedi(fine, c92).size() < 19) rinuncia("fine non confermata");
  }
};

struct Prese {
  Presa viva{porta_viva}, nuda{porta_nuda};
};

void a_riposo(Prese& prese) {
  Prelievo p("03");  // booked
  Campioni nudo;
  for (int i = 0; i < giri; ++i) {
    p.compi(prese.viva);
    prese.nuda.chiedi(p.chiave, nudo);
    p.concludi(prese.viva);
  }
  stampa_percentili("00090, card shown", p.c90);
  stampa_percentili("00091, key wanted", p.c91);
  stampa_percentili("00092, end of the operation, booked", p.c92);
  stampa_percentili("  floor of 00091: bare echo + six queries", nudo);
  stampa_rapporto("00091 p50 / bare echo + the same six queries", p.c91.mediana(), nudo.mediana(), 1.5);
  stampa_rapporto("00091 p99 / bare echo + the same six queries", p.c91.percentile(99), nudo.percentile(99),
                  3);
}

/// What a request may have to wait for: the commit of the record that is being booked.
Campioni commit_nudi(const QString& copia) {
  Nudo nudo(copia);
  Campioni c;
  for (int i = 0; i < 200; ++i)
    c.aggiungi(cronometra([&] { nudo.esegui("update movimenti set operazione = 'P' where id = 7"); }));
  return c;
}

void in_lettura(Prese& prese, const QString& copia) {
  Prelievo p("02");  // given up
  for (int i = 0; i < giri_in_lettura; ++i) {
    p.compi(prese.viva);
    p.concludi(prese.viva);
    std::this_thread::sleep_for(std::chrono::milliseconds(1 + i % 7));
  }
  stampa_percentili("00090 while another cabinet's store is read", p.c90);
  stampa_percentili("00091 while another cabinet's store is read", p.c91);
  const double peggiore = std::max({p.c90.percentile(99), p.c91.percentile(99), p.c92.percentile(99)});
  stampa_percentili("  one durable commit by hand, just after", commit_nudi(copia));
  stampa_valore("p99 of all three while another cabinet's store is read", peggiore / 1000, 20, "ms");
}

}  // namespace

int main() {
  const SitoMisure sito({.lokere = 2,
                         .chiavi = 1000,
                         .tessere = 5000,
                         .gruppi_chiavi = 20,
                         .gruppi_operatori = 1,
                         .gruppi_per_tessera = 20,
                         .movimenti = 200'000,
                         .giorno = oggi()});
  const QString copia = sito.copia(u"copia.mdb"_s);
  Prese prese;
  for (const bool legge : {false, true}) {
    const Figlio lokera([](const auto& pronto) { vivi_lokera(SitoMisure::indirizzo(2), 9999, pronto); });
    const Figlio console([&](const auto& pronto) { vivi_console(sito, copia, legge, pronto); });
    prese.nuda.accetta();
    prese.viva.accetta();
    legge ? in_lettura(prese, copia) : a_riposo(prese);
  }
}
