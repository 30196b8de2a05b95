#include "adapters/foglio.h"

#include <QPageSize>
#include <QPrinter>

#include <algorithm>

namespace lokera {

namespace {

constexpr double punto = twip_punto;

int twip(double punti) {
  return qRound(punti * punto);
}

QPageSize carta(const ProprietaStampa& p) {
  if (p.formato != formato_libero) return QPageSize(QPageSize::id(p.formato));
  const QSizeF libera(p.larghezza / punto, p.lunghezza / punto);
  return QPageSize(libera, QPageSize::Point, {}, QPageSize::ExactMatch);
}

/// Margins that leave something to print on.
QMarginsF margini(const ProprietaStampa& p, const QMarginsF& minimi, const QSizeF& foglio) {
  constexpr double parte = 0.45;
  const auto margine = [](int voluto, double minimo, double lato) {
    return std::max(minimo, std::min(voluto / punto, lato * parte));
  };
  return {margine(p.margine_sinistro, minimi.left(), foglio.width()),
          margine(p.margine_alto, minimi.top(), foglio.height()),
          margine(p.margine_destro, minimi.right(), foglio.width()),
          margine(p.margine_basso, minimi.bottom(), foglio.height())};
}

// Draft is the coarsest that the printer has, high the finest.
void applica_qualita(QPrinter& stampante, int qualita) {
  QList<int> finezze = stampante.supportedResolutions();
  if (qualita == 0 || finezze.isEmpty()) return;
  std::sort(finezze.begin(), finezze.end());
  stampante.setResolution(finezze[(finezze.size() - 1) * (-qualita - 1) / 3]);
}

}  // namespace

QSize misura_foglio(int formato) {
  const QPageSize::PageSizeId carta = QPageSize::id(formato);
  if (carta == QPageSize::Custom) return {};
  const QSizeF punti = QPageSize::size(carta, QPageSize::Point);
  return {twip(punti.width()), twip(punti.height())};
}

std::unique_ptr<QPrinter> crea_dispositivo(const ProprietaStampa& p) {
  auto stampante = std::make_unique<QPrinter>(QPrinter::HighResolution);
  if (p.stampante == stampante_pdf()) {
    stampante->setOutputFormat(QPrinter::PdfFormat);
  } else {
    stampante->setPrinterName(p.stampante);
    applica_qualita(*stampante, p.qualita);
    // Both lists name the bins in the same order, one from 1 and one from 0.
    if (p.alimentatore > 0) stampante->setPaperSource(QPrinter::PaperSource(p.alimentatore - 1));
  }
  const auto verso =
      p.orientamento == Orientamento::verticale ? QPageLayout::Portrait : QPageLayout::Landscape;
  stampante->setPageSize(carta(p));
  stampante->setPageOrientation(verso);
  QPageLayout pagina = stampante->pageLayout();
  stampante->setPageMargins(margini(p, pagina.minimumMargins(), pagina.fullRect(QPageLayout::Point).size()),
                            QPageLayout::Point);
  return stampante;
}

ProprietaStampa con_pagina(ProprietaStampa p, const QPageLayout& pagina) {
  const QSizeF carta = pagina.pageSize().size(QPageSize::Point);
  const int formato = pagina.pageSize().windowsId();
  p.formato = misura_foglio(formato).isEmpty() ? formato_libero : formato;
  p.larghezza = twip(carta.width());
  p.lunghezza = twip(carta.height());
  p.orientamento =
      pagina.orientation() == QPageLayout::Portrait ? Orientamento::verticale : Orientamento::orizzontale;
  const QMarginsF margini = pagina.margins(QPageLayout::Point);
  p.margine_sinistro = twip(margini.left());
  p.margine_alto = twip(margini.top());
  p.margine_destro = twip(margini.right());
  p.margine_basso = twip(margini.bottom());
  return p;
}

}  // namespace lokera
