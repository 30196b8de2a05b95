#pragma once

#include <QFrame>
#include <QLabel>

#include "windows/tabella_lista.h"

namespace lokera {

/// A list with its caption over it; the caption takes no room when there is none.
class Lista : public QFrame {
  Q_OBJECT
 public:
  explicit Lista(QWidget* padre = nullptr);
  /// Where the rows are; it takes the focus for the list.
  TabellaLista& tabella() { return *tabella_; }
  /// Also the accessible name of the rows; an empty one takes no room.
  void titolo(const QString& titolo);

 protected:
  void paintEvent(QPaintEvent* evento) override;

 private:
  QLabel* titolo_;
  TabellaLista* tabella_;
};

}  // namespace lokera
