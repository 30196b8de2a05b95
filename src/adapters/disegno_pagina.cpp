#include "adapters/disegno_pagina.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QPrinter>

#include <algorithm>

namespace lokera {

namespace {

constexpr double spessore = 10;  // of a line, in twips

/// The marks of pages, each font made once.
class Matita {
 public:
  Matita(QPainter& pittore, QPrinter& stampante)
      : pittore_(pittore), stampante_(stampante), scala_(punti_per_twip(stampante)) {
    pittore_.setPen(QPen(Qt::black, spessore * scala_));
  }

  void disegna(const PaginaStampa& pagina) {
    for (const SegnoStampa& segno : pagina.segni()) disegna(segno, pagina.caratteri());
  }

 private:
  void disegna(const SegnoStampa& segno, const QList<Carattere>& caratteri) {
    const QPointF da(segno.x * scala_, segno.y * scala_);
    const QPointF a(segno.x2 * scala_, segno.y2 * scala_);
    switch (segno.tipo) {
      case SegnoStampa::Tipo::linea:
        return pittore_.drawLine(da, a);
      case SegnoStampa::Tipo::riquadro:
        return pittore_.drawRect(QRectF(da, a));
      case SegnoStampa::Tipo::testo:
        prendi(caratteri[segno.carattere]);
        pittore_.drawText(da + QPointF(0, ascesa_), segno.testo);
    }
  }

  void prendi(const Carattere& carattere) {
    if (in_uso_ && carattere == *in_uso_) return;
    in_uso_ = carattere;
    pittore_.setFont(font(carattere));
    ascesa_ = QFontMetricsF(pittore_.font(), &stampante_).ascent();
  }

  QPainter& pittore_;
  QPrinter& stampante_;
  const double scala_;
  std::optional<Carattere> in_uso_;
  double ascesa_ = 0;
};

}  // namespace

QFont font(const Carattere& carattere) {
  QFont font(carattere.nome);
  font.setPointSizeF(carattere.dimensione);
  font.setBold(carattere.grassetto);
  return font;
}

double punti_per_twip(const QPrinter& stampante) {
  return double{1} * stampante.resolution() / twip_pollice;
}

Disegnato disegna(QPrinter& stampante, const Documento& documento, int al_massimo) {
  stampante.setDocName(documento.titolo);
  QPainter pittore;
  if (!pittore.begin(&stampante)) return Disegnato::guasto;
  Matita matita(pittore, stampante);
  const int pagine = al_massimo < 0 ? documento.pagine : std::min(documento.pagine, al_massimo);
  bool riuscito = true;
  for (int i = 1; i <= pagine && riuscito; ++i) {
    if (documento.continua && !documento.continua(i - 1)) {
      stampante.abort();
      pittore.end();
      return Disegnato::interrotto;
    }
    if (i > 1) riuscito = stampante.newPage();
    if (riuscito) matita.disegna(documento.pagina(i));
  }
  riuscito = pittore.end() && riuscito && stampante.printerState() != QPrinter::Error;
  return riuscito ? Disegnato::tutto : Disegnato::guasto;
}

}  // namespace lokera
