// The console with its doings on standard output and pictures of its window, for a bounded time.
#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QSet>
#include <QTimer>

#include <cstdio>

#include "app/avvio.h"
#include "app/cronaca.h"
#include "app/strada_demo.h"

namespace {

using namespace Qt::StringLiterals;

/// "1280x800"; an empty text leaves the screen as it is. Off-screen the default is a desk's, not a square.
QRect leggi_schermo(const QString& testo) {
  if (testo.isEmpty())
    return QGuiApplication::platformName() == u"offscreen"_s ? QRect(0, 0, 1280, 800) : QRect();
  return {0, 0, testo.section(u'x', 0, 0).toInt(), testo.section(u'x', 1, 1).toInt()};
}

struct Opzioni {
  QString cartella;
  QString schermate;
  int secondi = 60;
  int ogni = 10;
  int scarica = 0;
  QRect schermo;
  bool di_seguito = false;
  bool strada = false;
};

Opzioni leggi(const QCoreApplication& applicazione) {
  QCommandLineParser p;
  p.setApplicationDescription(u"Runs the console on the database of a folder and tells what it does."_s);
  p.addHelpOption();
  p.addOptions(
      {{u"cartella"_s, u"Folder of lokera.mdb."_s, u"DIR"_s, QCoreApplication::applicationDirPath()},
       {u"secondi"_s, u"How long to run."_s, u"N"_s, u"60"_s},
       {u"schermate"_s, u"Folder for pictures of the main window (none without it)."_s, u"DIR"_s},
       {u"schermo"_s, u"Size of the screen, as 1280x800."_s, u"WxH"_s},
       {u"ogni"_s, u"Seconds between two pictures."_s, u"N"_s, u"10"_s},
       {u"scarica"_s, u"Every so many seconds, move on to the next cabinet as the menu does; 0: never."_s,
        u"N"_s, u"0"_s},
       {u"di_seguito"_s, u"Move on to the next cabinet as soon as there is nothing left to do at one."_s},
       {u"strada"_s, u"First find the cabinets of the network by broadcast and register them."_s}});
  p.process(applicazione);
  Opzioni o{p.value(u"cartella"_s),     p.value(u"schermate"_s),       p.value(u"secondi"_s).toInt(),
            p.value(u"ogni"_s).toInt(), p.value(u"scarica"_s).toInt(), leggi_schermo(p.value(u"schermo"_s)),
            p.isSet(u"di_seguito"_s),   p.isSet(u"strada"_s)};
  if (o.secondi <= 0 || o.ogni <= 0) {
    std::fputs("secondi and ogni must be positive numbers\n", stderr);
    std::exit(2);
  }
  return o;
}

/// Saves numbered pictures, of the main window mostly.
class Schermate {
 public:
  Schermate(QWidget& finestra, const QString& cartella) : finestra_(finestra), cartella_(cartella) {
    if (!cartella.isEmpty()) QDir().mkpath(cartella);
  }
  void scatta(const QString& motivo) { scatta(finestra_, motivo); }
  void scatta(QWidget& finestra, const QString& motivo) {
    if (cartella_.isEmpty() || !finestra.isVisible()) return;
    const QString nome = u"%1_%2.png"_s.arg(++numero_, 3, 10, '0'_L1).arg(motivo);
    if (!finestra.grab().save(QDir(cartella_).filePath(nome)))
      std::fprintf(stderr, "can't save %s\n", qPrintable(nome));
  }

 private:
  QWidget& finestra_;
  const QString cartella_;
  int numero_ = 0;
};

/// Neither a visit nor the read of its records is under way.
bool tutto_letto(const lokera::Supervisore& parti) {
  const QString lettura = parti.principale.lblLetturaTrans.Caption;
  const bool finita =
      lettura == u"no data"_s || lettura == u"OFF line"_s || lettura.startsWith(u"record read"_s);
  return finita && !parti.acquisizione.shpTrans.Visible;
}

/// The colours of the panel's lamps, which its pictures are told apart by.
QList<lokera::Colore> colori(const lokera::PannelloLive& p) {
  QList<lokera::Colore> colori;
  for (const lokera::Shape* lampada : {&p.ShapeP, &p.ShapeSX, &p.ShapeDX, &p.lampade_esito_5,
                                       &p.lampade_esito_6, &p.lampade_esito_7, &p.lampade_esito_8})
    colori.append(lampada->FillColor());
  return colori;
}

}  // namespace

int main(int argc, char** argv) {
  const QApplication applicazione(argc, argv);
  const Opzioni opzioni = leggi(applicazione);
  lokera::prepara_aspetto();
  lokera::Avvio avvio(opzioni.cartella, opzioni.schermo);
  if (!avvio.apri()) return 1;

  lokera::Supervisore& parti = avvio.console().parti();
  lokera::frm_Main& principale = parti.principale;
  Schermate schermate(*avvio.schermo().forma(principale), opzioni.schermate);
  lokera::Cronaca cronaca(parti, *avvio.schermo().collegamento(principale), stdout);
  QSet<QList<lokera::Colore>> visti;
  cronaca.Pannello = [&](const QString&) {
    const QList<lokera::Colore> ora = colori(parti.pannello);
    if (visti.contains(ora)) return;
    visti.insert(ora);
    schermate.scatta(u"pannello"_s);
  };
  QTimer intervallo;
  intervallo.callOnTimeout([&schermate] { schermate.scatta(u"principale"_s); });
  intervallo.start(opzioni.ogni * 1000);
  QTimer scarica;
  scarica.callOnTimeout([&parti] { parti.ciclo.mnuScarTrans_Click(); });
  if (opzioni.scarica > 0) scarica.start(opzioni.scarica * 1000);
  QTimer seguito;
  seguito.callOnTimeout([&parti] {
    if (tutto_letto(parti)) parti.ciclo.mnuScarTrans_Click();
  });
  if (opzioni.di_seguito) seguito.start(20);
  QTimer::singleShot(opzioni.secondi * 1000, [&] {
    schermate.scatta(u"fine"_s);
    avvio.console().macchina().programma.fine();  // as the menu's last entry does, wherever a wait may stand
  });
  lokera::StradaDemo strada(avvio, [&](QWidget& w, const QString& motivo) { schermate.scatta(w, motivo); });
  QTimer::singleShot(0, [&] {
    avvio.carica();
    schermate.scatta(u"avvio"_s);
    if (opzioni.strada) strada.percorri();
  });
  return QApplication::exec();
}
