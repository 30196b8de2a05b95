#include "platform/ricompositore.h"

#include <utility>

#include "platform/blocco_controllo.h"

namespace lokera {

namespace {

// A code, its block check and the carriage return.
constexpr qsizetype frame_minimo = 8;

bool sano(QByteArrayView frame) {
  if (frame.size() < frame_minimo) return false;
  const auto bcc = blocco_controllo(frame.chopped(3));
  return frame[frame.size() - 3] == bcc[0] && frame[frame.size() - 2] == bcc[1];
}

}  // namespace

void Ricompositore::arriva(QByteArrayView pezzo) {
  while (!pezzo.isEmpty()) {
    const qsizetype fine = pezzo.indexOf('\r');
    const qsizetype lungo = fine < 0 ? pezzo.size() : fine + 1;
    resto_.append(pezzo.first(lungo));
    pezzo = pezzo.sliced(lungo);
    if (fine >= 0) componi(std::exchange(resto_, {}));
  }
  if (resto_.size() - consegnati_ > massimo) svuota_resto();
}

void Ricompositore::componi(QByteArrayView riga) {
  const QByteArrayView nuova = riga.sliced(std::exchange(consegnati_, 0));
  // Both are sound when what was handed out checks to nothing, as the two noughts that every code begins with
  // do.
  pronti_.append((sano(nuova) && !sano(riga) ? nuova : riga).toByteArray());
}

void Ricompositore::consegna_resto() {
  if (!resto()) return;
  pronti_.append(resto_.sliced(consegnati_));
  consegnati_ = resto_.size();
  if (consegnati_ > massimo) svuota_resto();
}

void Ricompositore::svuota_resto() {
  resto_.clear();
  consegnati_ = 0;
}

void Ricompositore::svuota() {
  pronti_.clear();
  svuota_resto();
}

}  // namespace lokera
