#include "windows/lampada_widget.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>

namespace lokera {

QColor qcolor(Colore colore) {
  return QColor(QRgb(0xFF000000U | colore));
}

LampadaWidget::LampadaWidget(QWidget* padre)
    : QWidget(padre), colore_(qcolor(grigio)), colore_numero_(Qt::black) {}

void LampadaWidget::mostra(Aspetto aspetto, Colore colore) {
  if (aspetto == aspetto_ && qcolor(colore) == colore_) return;
  aspetto_ = aspetto;
  colore_ = qcolor(colore);
  update();
}

void LampadaWidget::numero(const QString& numero, Colore colore) {
  if (numero == numero_ && qcolor(colore) == colore_numero_) return;
  numero_ = numero;
  colore_numero_ = qcolor(colore);
  update();
}

void LampadaWidget::paintEvent(QPaintEvent*) {
  QPainter p(this);
  p.setRenderHint(QPainter::Antialiasing);
  const qreal lato = std::min(width(), height()) - 4;
  QRectF r(0, 0, lato, lato);
  r.moveCenter(QRectF(rect()).center());
  dipingi_sfondo(p, r);
  dipingi_segno(p, r);
  if (numero_.isEmpty()) return;
  p.setPen(colore_numero_);
  p.drawText(rect(), Qt::AlignCenter, numero_);
}

void LampadaWidget::dipingi_sfondo(QPainter& p, const QRectF& r) const {
  const QColor bordo = colore_.darker(160);
  switch (aspetto_) {
    case Aspetto::anello:
      p.setPen(QPen(colore_.darker(115), r.width() / 9));
      p.setBrush(Qt::white);
      p.drawEllipse(r.adjusted(2, 2, -2, -2));
      break;
    case Aspetto::tratteggio:
      p.setPen(QPen(colore_.darker(125), 1.2, Qt::DashLine));
      p.setBrush(Qt::white);
      p.drawEllipse(r);
      break;
    case Aspetto::quadro:
      p.setPen(QPen(bordo, 1));
      p.setBrush(colore_);
      p.drawRoundedRect(r, 4, 4);
      p.setPen(QPen(Qt::white, 1.4));
      p.setBrush(Qt::NoBrush);
      p.drawRoundedRect(r.adjusted(3, 3, -3, -3), 2, 2);
      break;
    default:
      p.setPen(QPen(bordo, 1.2));
      p.setBrush(colore_);
      p.drawEllipse(r);
  }
}

void LampadaWidget::dipingi_segno(QPainter& p, const QRectF& r) const {
  const auto punto = [&r](qreal x, qreal y) {
    return QPointF(r.left() + x * r.width(), r.top() + y * r.height());
  };
  QPainterPath segno;
  switch (aspetto_) {
    case Aspetto::spunta:
      segno.moveTo(punto(.28, .53));
      segno.lineTo(punto(.44, .69));
      segno.lineTo(punto(.73, .34));
      break;
    case Aspetto::croce:
      segno.moveTo(punto(.33, .33));
      segno.lineTo(punto(.67, .67));
      segno.moveTo(punto(.67, .33));
      segno.lineTo(punto(.33, .67));
      break;
    case Aspetto::freccia:
      segno.moveTo(punto(.5, .24));
      segno.lineTo(punto(.5, .74));
      segno.moveTo(punto(.3, .54));
      segno.lineTo(punto(.5, .76));
      segno.lineTo(punto(.7, .54));
      break;
    default:
      return;
  }
  p.setBrush(Qt::NoBrush);
  p.setPen(QPen(Qt::white, std::max(2.0, r.width() / 9), Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  p.drawPath(segno);
}

}  // namespace lokera
