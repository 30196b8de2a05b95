#pragma once

#include <QFrame>

namespace lokera {

/// A white card with a thin edge that holds what belongs together.
class Riquadro : public QFrame {
  Q_OBJECT
 public:
  using QFrame::QFrame;

 protected:
  void paintEvent(QPaintEvent* evento) override;
};

}  // namespace lokera
