#include "platform/documento.h"

namespace lokera {

void Documento::carattere(const Carattere& nuovo) {
  if (nuovo != caratteri_.last()) caratteri_.append(nuovo);
}

void Documento::segna(SegnoStampa segno) {
  segno.carattere = caratteri_.size() - 1;
  pagine_.last().append(std::move(segno));
}

void Documento::testo(int x, int y, const QString& testo) {
  segna({SegnoStampa::Tipo::testo, x, y, x, y, testo});
}

void Documento::linea(int x1, int y1, int x2, int y2) {
  segna({SegnoStampa::Tipo::linea, x1, y1, x2, y2, {}});
}

void Documento::riquadro(int x, int y, int larghezza, int altezza) {
  segna({SegnoStampa::Tipo::riquadro, x, y, x + larghezza, y + altezza, {}});
}

QStringList Documento::testi() const {
  QStringList testi;
  for (const PaginaStampa& pagina : pagine_)
    for (const SegnoStampa& segno : pagina)
      if (segno.tipo == SegnoStampa::Tipo::testo) testi.append(segno.testo);
  return testi;
}

}  // namespace lokera
