// From the start of the program to its painted window, beside an empty window and an encrypted file opened;
// each time a process of its own.
#include <QApplication>
#include <QTimer>
#include <QWidget>

#include <sys/wait.h>
#include <unistd.h>

#include "app/avvio.h"
#include "bench/misura.h"
#include "bench/nudo.h"
#include "bench/sito_misure.h"

using namespace lokera;
using namespace lokera::bench;

namespace {

constexpr int giri = 8;

/// Ends the process well once a window has been painted.
class FineAllaVista : public QObject {
 protected:
  bool eventFilter(QObject* oggetto, QEvent* evento) override {
    const auto* widget = evento->type() == QEvent::Paint ? qobject_cast<QWidget*>(oggetto) : nullptr;
    if (widget != nullptr && widget->isVisible() && !vista_) {
      vista_ = true;
      QTimer::singleShot(0, [] { ::_exit(0); });
    }
    return false;
  }

 private:
  bool vista_ = false;
};

int parti(int argc, char** argv, const QString& cartella, bool vuota) {
  QApplication app(argc, argv);
  FineAllaVista fine;
  app.installEventFilter(&fine);
  if (vuota) {
    const Nudo nudo(cartella + u'/' + nome_file_database());
    QWidget finestra;
    finestra.show();
    return QApplication::exec();
  }
  prepara_aspetto();
  Avvio avvio(cartella);
  if (!avvio.apri()) return 1;
  QTimer::singleShot(0, [&avvio] { avvio.carica(); });
  return QApplication::exec();
}

void aspetta(const char* programma, const char* come, const QByteArray& cartella) {
  const pid_t pid = ::fork();
  if (pid == 0) {
    ::execl(programma, programma, come, cartella.constData(), nullptr);
    ::_exit(127);
  }
  int stato = 0;
  if (pid < 0 || ::waitpid(pid, &stato, 0) != pid || stato != 0) rinuncia("il programma non parte");
}

}  // namespace

int main(int argc, char** argv) {
  if (argc > 2) return parti(argc, argv, QString::fromUtf8(argv[2]), QByteArrayView(argv[1]) == "vuota");
  const SitoMisure sito({.chiavi = 1000, .tessere = 1000, .movimenti = 20'000});
  const QByteArray cartella = sito.cartella().toUtf8();
  const Confronto c = a_turno(
      giri, [&] { aspetta("/proc/self/exe", "console", cartella); },
      [&] { aspetta("/proc/self/exe", "vuota", cartella); });
  stampa_rapporto("start to painted window / empty window + encrypted file", c.nostro.mediana() / 1000,
                  c.pavimento.mediana() / 1000, 2, "ms");
}
