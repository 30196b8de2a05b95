#pragma once

#include <QLabel>

namespace lokera {

/// A label for data whose length nobody knows: what doesn't fit ends in an ellipsis and is told whole by the
/// tool tip. `text()` is always the whole text.
class EtichettaDati : public QLabel {
  Q_OBJECT
 public:
  using QLabel::QLabel;
  QSize minimumSizeHint() const override { return {0, QLabel::minimumSizeHint().height()}; }
  bool abbreviata() const;

 protected:
  void paintEvent(QPaintEvent* evento) override;
  bool event(QEvent* evento) override;
};

}  // namespace lokera
