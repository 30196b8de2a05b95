#include <QApplication>
#include <QTimer>

#include "app/avvio.h"

int main(int argc, char** argv) {
  const QApplication applicazione(argc, argv);
  lokera::prepara_aspetto();
  lokera::Avvio avvio(QCoreApplication::applicationDirPath());
  if (!avvio.apri()) return 1;
  QTimer::singleShot(0, [&avvio] { avvio.carica(); });
  return QApplication::exec();
}
