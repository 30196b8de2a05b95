#include "windows/lista.h"

#include <QPainter>
#include <QVBoxLayout>

namespace lokera {

Lista::Lista(QWidget* padre) : QFrame(padre), titolo_(new QLabel(this)), tabella_(new TabellaLista(this)) {
  auto* colonna = new QVBoxLayout(this);
  colonna->setContentsMargins(1, 1, 1, 1);
  colonna->setSpacing(0);
  colonna->addWidget(titolo_);
  colonna->addWidget(tabella_, 1);
  titolo_->setTextFormat(Qt::PlainText);
  titolo_->setContentsMargins(9, 5, 9, 5);
  titolo_->hide();
  QFont grassetto = titolo_->font();
  grassetto.setBold(true);
  titolo_->setFont(grassetto);
  titolo_->setBuddy(tabella_);
  setFocusProxy(tabella_);
}

void Lista::titolo(const QString& titolo) {
  titolo_->setText(titolo);
  titolo_->setVisible(!titolo.isEmpty());
  if (!titolo.isEmpty()) tabella_->setAccessibleName(titolo);
}

void Lista::paintEvent(QPaintEvent*) {
  QPainter p(this);
  p.setPen(palette().color(QPalette::Mid));
  p.setBrush(palette().color(QPalette::Base));
  p.drawRect(rect().adjusted(0, 0, -1, -1));
}

}  // namespace lokera
