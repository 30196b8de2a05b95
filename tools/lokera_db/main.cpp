#include <QCoreApplication>
#include <QTextStream>

#include <cstdio>

#include "comandi.h"

int main(int argc, char** argv) {
  const QCoreApplication programma(argc, argv);
  QTextStream uscita(stdout);
  QTextStream errori(stderr);
  const auto esito = lokera::esegui_comando(QCoreApplication::arguments().sliced(1), uscita, errori);
  uscita.flush();
  return uscita.status() == QTextStream::Ok ? static_cast<int>(esito) : 1;
}
