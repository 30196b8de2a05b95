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

  /// Repaints only when one of the two is another.
  void mostra(Aspetto aspetto, Colore colore);
  /// The position's number, as it is displayed, over the sign; empty for none.
  void numero(const QString& numero, Colore colore);
  Aspetto aspetto() const { return aspetto_; }
  QColor colore() const { return colore_; }
  QString numero() const { return numero_; }

  QSize sizeHint() const override { return {28, 28}; }

 protected:
  void paintEvent(QPaintEvent* evento) override;

 private:
  // The form, then the sign on it; the number comes over both.
  void dipingi_sfondo(QPainter& p, const QRectF& r) const;
  void dipingi_segno(QPainter& p, const QRectF& r) const;

  Aspetto aspetto_ = Aspetto::anello;
  QColor colore_;
  QString numero_;
  QColor colore_numero_;
};

QColor qcolor(Colore colore);

}  // namespace lokera
