#include "platform/documento.h"

namespace lokera {

void PaginaStampa::carattere(const Carattere& nuovo) {
  if (nuovo != caratteri_.last()) caratteri_.append(nuovo);
}

void PaginaStampa::segna(SegnoStampa segno) {
  segno.carattere = caratteri_.size() - 1;
  segni_.append(std::move(segno));
}

void PaginaStampa::testo(int x, int y, const QString& testo) {
  segna({SegnoStampa::Tipo::testo, x, y, x, y, testo});
}

void PaginaStampa::linea(int x1, int y1, int x2, int y2) {
  segna({SegnoStampa::Tipo::linea, x1, y1, x2, y2, {}});
}

void PaginaStampa::riquadro(int x, int y, int larghezza, int altezza) {
  segna({SegnoStampa::Tipo::riquadro, x, y, x + larghezza, y + altezza, {}});
}

QStringList PaginaStampa::testi() const {
  QStringList testi;
  for (const SegnoStampa& segno : segni_)
    if (segno.tipo == SegnoStampa::Tipo::testo) testi.append(segno.testo);
  return testi;
}

}  // namespace lokera
