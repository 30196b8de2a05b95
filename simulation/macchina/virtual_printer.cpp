#include "simulation/macchina/virtual_printer.h"

#include <algorithm>
#include <cmath>

namespace lokera::simulazione {

namespace {

QSize misura(int formato) {
  switch (formato) {
    case 1:
      return {12240, 15840};  // Letter
    case 8:
      return {16838, 23811};  // A3
    case formato_a4:
      return {11906, 16838};
    default:
      return {};
  }
}

QSize foglio(const ProprietaStampa& p) {
  const QSize ritto(p.larghezza, p.lunghezza);
  return p.orientamento == Orientamento::verticale ? ritto : ritto.transposed();
}

}  // namespace

void VirtualPrinter::imposta(const ProprietaStampa& nuove) {
  proprieta_ = combina(proprieta_, nuove, stampanti(), misura);
}

std::optional<ProprietaStampa> VirtualPrinter::imposta_pagina(const ProprietaStampa& iniziali) {
  fogli_mostrati.append(iniziali);
  return fogli_scelti.isEmpty() ? std::nullopt : fogli_scelti.takeFirst();
}

int VirtualPrinter::ScaleWidth() const {
  return foglio(proprieta_).width() - proprieta_.margine_sinistro - proprieta_.margine_destro;
}

int VirtualPrinter::ScaleHeight() const {
  return foglio(proprieta_).height() - proprieta_.margine_alto - proprieta_.margine_basso;
}

int VirtualPrinter::TextWidth(const Carattere& carattere, const QString& testo) const {
  const double uno = carattere.dimensione * twip_punto / 2 * (carattere.grassetto ? 1.1 : 1.0);
  return static_cast<int>(std::ceil(uno * static_cast<double>(testo.size())));
}

int VirtualPrinter::TextHeight(const Carattere& carattere) const {
  return static_cast<int>(std::ceil(carattere.dimensione * twip_punto * 1.2));
}

EsitoStampa VirtualPrinter::stampa(const Documento& documento) {
  QString nome;
  if (proprieta_.stampante == stampante_pdf()) {
    const auto scelto = file_.salva(scelta_pdf(documento));
    if (!scelto) return {};
    nome = *scelto;
  }
  QList<PaginaStampa> pagine;
  for (int i = 1; i <= documento.pagine; ++i) {
    if (prima_di_ogni_pagina) prima_di_ogni_pagina(i);
    if (documento.continua && !documento.continua(i - 1)) return {};
    pagine.append(documento.pagina(i));
  }
  if (guasto.isEmpty()) stampati.append({documento.titolo, pagine, proprieta_, nome});
  return {guasto.isEmpty(), guasto};
}

void VirtualPrinter::anteprima(const Documento& documento, const TestiAnteprima&) {
  QList<PaginaStampa> pagine;
  for (int i = 1; i <= std::min(documento.pagine, pagine_anteprima); ++i) pagine.append(documento.pagina(i));
  mostrati.append({documento.titolo, pagine, proprieta_, {}});
}

QStringList VirtualPrinter::Stampato::testi() const {
  QStringList testi;
  for (const PaginaStampa& pagina : pagine) testi += pagina.testi();
  return testi;
}

}  // namespace lokera::simulazione
