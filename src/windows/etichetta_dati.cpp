#include "windows/etichetta_dati.h"

#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

namespace lokera {

using namespace Qt::StringLiterals;

bool EtichettaDati::abbreviata() const {
  return fontMetrics().horizontalAdvance(text()) > contentsRect().width();
}

void EtichettaDati::paintEvent(QPaintEvent*) {
  QPainter p(this);
  drawFrame(&p);
  const QRect posto = contentsRect();
  const QString testo = fontMetrics().elidedText(text(), Qt::ElideRight, posto.width());
  p.setPen(palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::WindowText));
  p.drawText(posto, static_cast<int>(alignment()) | Qt::TextSingleLine, testo);
}

bool EtichettaDati::event(QEvent* evento) {
  if (evento->type() != QEvent::ToolTip || !abbreviata()) return QLabel::event(evento);
  // As escaped rich text it also wraps.
  QToolTip::showText(static_cast<QHelpEvent*>(evento)->globalPos(),
                     u"<p>%1</p>"_s.arg(text().toHtmlEscaped()), this);
  return true;
}

}  // namespace lokera
