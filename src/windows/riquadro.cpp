#include "windows/riquadro.h"

#include <QPainter>

namespace lokera {

void Riquadro::paintEvent(QPaintEvent*) {
  QPainter p(this);
  p.setRenderHint(QPainter::Antialiasing);
  p.setPen(QPen(palette().color(QPalette::Mid), 1));
  p.setBrush(palette().color(QPalette::Base));
  p.drawRoundedRect(QRectF(rect()).adjusted(.5, .5, -.5, -.5), 5, 5);
}

}  // namespace lokera
