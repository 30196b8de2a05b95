#pragma once

#include <QString>
#include <QWidget>

#include <memory>

namespace lokera {

/// The drawing of a window that comes straight from its `.ui` file.
template <class Ui>
class Forma : public QWidget {
 public:
  Forma() { ui.setupUi(this); }
  Ui ui;
};

/// A fresh drawing for the window of that name; null for a name that has none. One row of its table for each
/// window.
std::unique_ptr<QWidget> crea_forma(const QString& nome);

}  // namespace lokera
