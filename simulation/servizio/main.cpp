#include <QCoreApplication>
#include <QFile>
#include <QTextStream>
#include <QTimer>
#include <QUdpSocket>

#include "adapters/base/qt_clock.h"
#include "adapters/base/qt_timer.h"
#include "simulation/servizio/impianto.h"
#include "simulation/servizio/lettore_finto.h"
#include "simulation/servizio/real_rete.h"
#include "simulation/servizio/rete_propria.h"
#include "simulation/servizio/segnali.h"

namespace {

using namespace lokera;
using namespace lokera::simulazione;
using namespace Qt::StringLiterals;

constexpr int comando_errato = 2;

int rifiuta(const QString& motivo, int stato) {
  QTextStream(stderr) << "simulatore: " << motivo << '\n';
  return stato;
}

void stampa(const QString& riga) {
  QTextStream(stdout) << riga << '\n';
}

bool apri(QFile& file, const QString& nome) {
  file.setFileName(nome);
  return nome.isEmpty() || file.open(QIODevice::WriteOnly | QIODevice::Truncate);
}

// Line by line, so that a script that watches the file sees each as it happens.
void annota(QFile& file, const QByteArray& riga) {
  if (!file.isOpen()) return;
  file.write(riga + '\n');
  file.flush();
}

void stampa_frame(const QString& cabinet, quint16 porta, char verso, QByteArrayView frame) {
  const QString testo = QString::fromLatin1(frame.endsWith('\r') ? frame.chopped(1) : frame);
  stampa(u"%1:%2 %3 %4"_s.arg(cabinet).arg(porta).arg(QLatin1Char(verso)).arg(testo));
}

int esegui(const OpzioniSimulatore& opzioni) {
  if (const QString via = opzioni.broadcast ? via_verso_altri() : QString(); !via.isEmpty()) {
    return rifiuta(u"--broadcast: %1 leads to other computers; run it by scripts/rete_propria"_s.arg(via),
                   comando_errato);
  }
  QFile registro_su;
  QFile archivio_su;
  if (!apri(registro_su, opzioni.registro))
    return rifiuta(opzioni.registro + u": "_s + registro_su.errorString(), 1);
  if (!apri(archivio_su, opzioni.archivio))
    return rifiuta(opzioni.archivio + u": "_s + archivio_su.errorString(), 1);

  RegistroEventi registro;
  registro.Riga = [&](const QByteArray& riga) { annota(registro_su, riga); };
  const QtClock orologio;
  QtTimers timer;
  RealRete rete(opzioni.broadcast);
  Impianto impianto(opzioni, rete, orologio, timer, registro);
  if (opzioni.parla) impianto.Parla = stampa_frame;
  const Segnali segnali([] { QCoreApplication::quit(); });

  const QString occupato = impianto.apri();
  if (!occupato.isEmpty()) return rifiuta(u"can't listen on %1"_s.arg(occupato), 1);
  LettoreFinto lettore(opzioni.lettore, leggibili(opzioni.sito), seme_di(opzioni.seme, 0));
  if (!opzioni.lettore.isEmpty()) {
    if (const QString errore = lettore.attacca(); !errore.isEmpty()) return rifiuta(errore, 1);
    lettore.inizia(timer, opzioni.lettore_ogni_s);
  }
  impianto.inizia();
  QTimer::singleShot(opzioni.durata_s * 1000, [] { QCoreApplication::quit(); });
  if (opzioni.prelievi_s > 0) {
    QTimer::singleShot(opzioni.prelievi_s * 1000, [&impianto] { impianto.basta_prelievi(); });
  }
  stampa(u"pronto %1"_s.arg(opzioni.indirizzi.join(u' ')));
  const int stato = QCoreApplication::exec();
  impianto.chiudi();
  if (archivio_su.isOpen()) archivio_su.write(impianto.archivio());
  return stato;
}

}  // namespace

int main(int argc, char** argv) {
  QCoreApplication app(argc, argv);
  QCoreApplication::setApplicationName(u"simulatore"_s);
  OpzioniSimulatore opzioni;
  const QString errore = leggi_opzioni(QCoreApplication::arguments(), opzioni);
  if (!errore.isEmpty()) return rifiuta(errore + u" (see simulatore --help)"_s, comando_errato);
  if (opzioni.aiuto) {
    stampa(testo_aiuto());
    return 0;
  }
  return esegui(opzioni);
}
