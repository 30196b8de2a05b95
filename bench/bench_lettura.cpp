// One stored record: read, booked, acknowledged; beside one durable commit of the same two writes and two
// bare round trips.
#include <QCoreApplication>
#include <QTcpSocket>

#include "adapters/real_machine.h"
#include "bench/figlio.h"
#include "bench/lokera_misure.h"
#include "bench/misura.h"
#include "bench/nudo.h"
#include "bench/sito_misure.h"
#include "link/protocollo.h"
#include "supervisor/console.h"

using namespace Qt::StringLiterals;

using namespace lokera;
using namespace lokera::bench;

namespace {

constexpr int giri = 30;
constexpr qint16 per_giro = 20;
constexpr int movimenti = 50000;

/// The same work by hand.
class Pavimento {
 public:
  Pavimento(const QString& file, const QString& indirizzo)
      : nudo_(file),
        chiave_(nudo_, "update tessere_chiavi set operatore = ?, uscita = ? where codice = ?"),
        movimento_(nudo_,
                   "insert into movimenti (id, operatore, intestazione, chiave, operazione, data) values"
                   " (?, ?, ?, ?, 'P', ?)") {
    socket_.connectToHost(normalizza_ip(indirizzo), porta_eco);
    if (!socket_.waitForConnected()) rinuncia("eco");
    socket_.setSocketOption(QAbstractSocket::LowDelayOption, 1);
  }

  void commit() {
    const QByteArray tessera = SitoMisure::tessera(id_ % 50).toLatin1();
    const QByteArray chiave = SitoMisure::chiave(id_ % 50).toLatin1();
    nudo_.esegui("begin immediate");
    chiave_.lega(1, tessera).lega(2, "2008-11-30 08:15:00").lega(3, chiave).passo();
    chiave_.azzera();
    movimento_.lega(1, qlonglong(id_++)).lega(2, tessera).lega(3, "Maria Rossi").lega(4, chiave);
    movimento_.lega(5, "2008-11-30 08:15:00").passo();
    movimento_.azzera();
    nudo_.esegui("commit");
  }
  void giro() {
    socket_.write(frame_leggi_transazione);
    socket_.flush();
    if (!socket_.waitForReadyRead()) rinuncia("eco");
    socket_.readAll();
  }

 private:
  Nudo nudo_;
  Istruzione chiave_, movimento_;
  QTcpSocket socket_;
  int id_ = movimenti + 1;
};

void collega(Supervisore& parti) {
  parti.principale.corrente.porta_a(u"1"_s, u"lokera 1"_s, SitoMisure::indirizzo(1));
  parti.download.connessione_socket_download();
  if (!parti.download.connessa()) rinuncia("lokera");
}

}  // namespace

int main(int argc, char** argv) {
  const SitoMisure sito({.chiavi = 144, .tessere = 500, .movimenti = movimenti});
  const QString copia = sito.copia(u"copia.mdb"_s);
  const Figlio lokera([](const auto& pronto) { vivi_lokera(SitoMisure::indirizzo(1), 9000, pronto); });
  const QCoreApplication app(argc, argv);
  RealMachine computer;
  Console console(computer.macchina());
  if (!console.apri(sito.cartella())) return 1;
  Supervisore& parti = console.parti();
  collega(parti);
  Pavimento pavimento(copia, SitoMisure::indirizzo(1));
  Campioni viaggi;
  const Confronto c = a_turno(
      giri, [&] { parti.acquisizione.leggi_transazioni(per_giro); },
      [&] {
        for (int i = 0; i < per_giro; ++i) pavimento.commit();
        viaggi.aggiungi(cronometra([&] {
          for (int i = 0; i < 2 * per_giro; ++i) pavimento.giro();
        }));
      });
  if (parti.acquisizione.lblNumTrans.Caption().toInt() != (giri + 1) * per_giro) rinuncia("record persi");
  stampa_valore("  of the floor: two bare round trips", viaggi.mediana() / per_giro, 0);
  stampa_rapporto("a stored record read, booked, acknowledged / durable commit + two round trips",
                  c.nostro.mediana() / per_giro, c.pavimento.mediana() / per_giro, 1.3);
}
