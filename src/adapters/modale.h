#pragma once

#include <QApplication>
#include <QPointer>

#include <utility>

namespace lokera {

/// The arrow, over an hourglass that stands, for as long as it lives.
class Freccia {
 public:
  Freccia() : sopra_(QApplication::overrideCursor() != nullptr) {
    if (sopra_) QApplication::setOverrideCursor(Qt::ArrowCursor);
  }
  ~Freccia() {
    if (sopra_) QApplication::restoreOverrideCursor();
  }
  Q_DISABLE_COPY_MOVE(Freccia)

 private:
  const bool sopra_;
};

/// A dialog over the active window, which may close while it is open and take it with it.
template <class Dialogo>
class Modale {
 public:
  /// The arguments of its constructor before the parent.
  template <class... Argomenti>
  explicit Modale(Argomenti&&... argomenti)
      : dialogo_(new Dialogo(std::forward<Argomenti>(argomenti)..., QApplication::activeWindow())) {}
  ~Modale() { delete dialogo_; }
  Q_DISABLE_COPY_MOVE(Modale)

  Dialogo* operator->() const { return dialogo_; }
  Dialogo& operator*() const { return *dialogo_; }
  /// Shows it until it is closed. False when it is gone.
  bool esegui() {
    const Freccia freccia;
    dialogo_->exec();
    return !dialogo_.isNull();
  }

 private:
  QPointer<Dialogo> dialogo_;
};

}  // namespace lokera
