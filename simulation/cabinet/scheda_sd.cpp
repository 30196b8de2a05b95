#include "simulation/cabinet/scheda_sd.h"

#include "simulation/cabinet/cabinet.h"
#include "simulation/cabinet/campi.h"

namespace lokera::simulazione {

namespace {

constexpr qsizetype cifre_codice = 10;

/// A line without its end; false for one of another form. `cifre` behind a comma, or none.
bool leggi_riga(QByteArray riga, qsizetype cifre, QByteArray& record) {
  if (!riga.endsWith(";\r")) return false;
  riga.chop(2);
  const qsizetype intera = cifre_codice + (cifre > 0 ? 1 + cifre : 0);
  if (riga.size() != intera || !stampabile(riga)) return false;
  record = riga.first(cifre_codice);
  if (cifre == 0) return true;
  record += riga.last(cifre);
  return riga[cifre_codice] == ',' && cifre_esadecimali(riga.last(cifre));
}

bool carica(Archivio& archivio, const QByteArray& file, qsizetype cifre) {
  QByteArrayList righe = file.split('\n');
  if (!righe.takeLast().isEmpty() || righe.size() > archivio.limite()) return false;
  for (QByteArray& riga : righe)
    if (!leggi_riga(riga, cifre, riga)) return false;
  archivio.svuota();
  for (int posizione = 0; posizione < righe.size(); ++posizione) archivio.scrivi(posizione, righe[posizione]);
  return true;
}

}  // namespace

bool carica_chiavi(Cabinet& cabinet, const QByteArray& file) {
  return carica(cabinet.stato().chiavi, file, 0);
}

bool carica_operatori(Cabinet& cabinet, const QByteArray& file) {
  return carica(cabinet.stato().operatori, file, cifre_maschera);
}

QByteArray scarica_movimenti(Cabinet& cabinet) {
  QByteArray file;
  Transazioni& memoria = cabinet.stato().transazioni;
  for (; memoria.prima() != nullptr; memoria.togli_prima()) {
    const QByteArray t = testo_transazione(memoria.prima()->movimento);
    file += t.first(10) + ',' + t.sliced(10, 10) + ',' + t.sliced(20, 2) + ',' + t.sliced(22) + "\r\n";
  }
  return file;
}

}  // namespace lokera::simulazione
