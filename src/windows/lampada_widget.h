#pragma once

#include <QWidget>

#include "forms/controlli.h"

namespace lokera {

/// What a lamp says. Each has a form of its own, so that no one needs to tell colours apart.
enum class Aspetto { anello, spunta, croce, tratteggio, disco, quadro, freccia };

/// A lamp: a small sign in the colour of its control, with a number in it where it stands for a key position.
class LampadaWidget : public QWidget {
  Q_OBJECT
 public:
  explicit LampadaWidget(QWidget* padre = nullptr);

  void mostra(Aspetto aspetto, Colore colore);
  void numero(const QString& numero, Colore colore);
  Aspetto aspetto() const { return aspetto_; }
  QColor colore() const { return colore_; }
  QString numero() const { return numero_; }

  QSize sizeHint() const override { return {28, 28}; }

 protected:
  void paintEvent(QPaintEvent* evento) override;

 private:
  void dipingi_sfondo(QPainter& p, const QRectF& r) const;
  void dipingi_segno(QPainter& p, const QRectF& r) const;

  Aspetto aspetto_ = Aspetto::anello;
  QColor colore_;
  QString numero_;
  QColor colore_numero_;
};

QColor qcolor(Colore colore);

}  // namespace lokera
