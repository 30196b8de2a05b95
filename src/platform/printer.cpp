#include "platform/printer.h"

namespace lokera {

namespace {

QSize foglio(const ProprietaStampa& attuali, const ProprietaStampa& nuove) {
  return {nuove.larghezza > 0 ? nuove.larghezza : attuali.larghezza,
          nuove.lunghezza > 0 ? nuove.lunghezza : attuali.lunghezza};
}

}  // namespace

ProprietaStampa combina(const ProprietaStampa& attuali, const ProprietaStampa& nuove,
                        const QStringList& stampanti, const std::function<QSize(int)>& misura) {
  ProprietaStampa p = nuove;
  if (!stampanti.contains(p.stampante)) p.stampante = attuali.stampante;
  if (p.qualita < -4 || p.qualita >= 0) p.qualita = attuali.qualita;
  if (p.alimentatore <= 0) p.alimentatore = attuali.alimentatore;
  const QSize carta = p.formato == formato_libero ? foglio(attuali, nuove) : misura(p.formato);
  if (carta.isEmpty()) p.formato = attuali.formato;
  p.larghezza = carta.isEmpty() ? attuali.larghezza : carta.width();
  p.lunghezza = carta.isEmpty() ? attuali.lunghezza : carta.height();
  return p;
}

SceltaFile scelta_pdf(const Documento& documento) {
  return {{}, u"PDF|*.pdf"_s, documento.titolo.trimmed() + u".pdf"_s, {}};
}

}  // namespace lokera
