#include "cards/codice_da_lettura.h"

#include "platform/letterali.h"

namespace lokera {

namespace {

constexpr qsizetype cifre_codice = 10;

bool con_testata(const QString& testo) {
  return testo.size() >= 14 && (testo.startsWith("FF"_L1) || testo.startsWith("0700"_L1));
}

bool in_cornice(const QString& testo) {
  return testo.size() >= 16 && testo.startsWith("00"_L1) && testo.sliced(14).startsWith("FF"_L1);
}

}  // namespace

QString codice_da_lettura(const QString& testo) {
  QString codice;
  if (con_testata(testo))
    codice = testo.sliced(4, cifre_codice);
  else if (in_cornice(testo))
    codice = testo.sliced(2, cifre_codice);
  return codice.startsWith("00"_L1) ? QString() : codice;
}

}  // namespace lokera
