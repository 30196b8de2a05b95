#include "reports/imposta_stampante.h"

namespace lokera {

namespace {

constexpr QChar alimentatore_automatico = u'7';
constexpr int cifre = 100;  // of a centimetre that people write

int twip(double centimetri) {
  return qRound(centimetri * twip_centimetro);
}

double centimetri(int twip) {
  return qRound(double{cifre} * twip / twip_centimetro) / double{cifre};
}

}  // namespace

ProprietaStampa imposta_stampante(const ProprietaStampa& attuali, const ImpostazioniStampa& i,
                                  std::optional<double> margine) {
  ProprietaStampa p = attuali;
  p.stampante = i.stampante;
  p.qualita = i.qualita.toInt();
  const QChar cassetto = i.alimentatore.isEmpty() ? alimentatore_automatico : i.alimentatore.front();
  p.alimentatore = cassetto == alimentatore_automatico ? 0 : cassetto.digitValue();
  p.formato = i.formato;
  if (p.formato == formato_libero) {
    p.larghezza = twip(i.larghezza);
    p.lunghezza = twip(i.lunghezza);
  }
  p.orientamento = i.orientamento == u"Landscape"_s ? Orientamento::orizzontale : Orientamento::verticale;
  if (margine) p.margine_sinistro = twip(*margine);
  return p;
}

ImpostazioniStampa con_pagina(ImpostazioniStampa i, const ProprietaStampa& pagina) {
  i.formato = pagina.formato;
  i.larghezza = centimetri(pagina.larghezza);
  i.lunghezza = centimetri(pagina.lunghezza);
  i.orientamento = pagina.orientamento == Orientamento::orizzontale ? u"Landscape"_s : u"Portrait"_s;
  i.margineSx = centimetri(pagina.margine_sinistro);
  return i;
}

}  // namespace lokera
