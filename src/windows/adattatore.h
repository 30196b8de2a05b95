#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>

#include <memory>

#include "forms/controlli.h"
#include "forms/traduttore.h"

namespace lokera {

/// Ties one control to one widget. The widget may go first; the control may too, then the adapter is dropped
/// without touching it.
class Adattatore : public QObject {
 public:
  Adattatore(Controllo& controllo, QWidget& widget) : controllo_(controllo), widget_(&widget) {}

  /// The widget takes the control's state.
  void aggiorna();
  /// `vive` is false when the control is gone already.
  virtual void scollega(bool /*vive*/) {}
  /// The window has a new title, and with it perhaps another language.
  virtual void titolo_cambiato() {}
  /// What the user has begun is handed over, since the window is about to close.
  virtual void conferma() {}
  QWidget* widget() const { return widget_; }

 protected:
  virtual void mostra() = 0;
  Controllo& controllo() const { return controllo_; }

 private:
  Controllo& controllo_;
  QPointer<QWidget> widget_;
};

/// The adapter of the control's kind for this widget; null when the two don't fit.
std::unique_ptr<Adattatore> adatta(Controllo& controllo, QWidget& widget, Traduttore& traduttore);

/// A caption as a button shows it: its blanks belong to the wording only, and "&" means itself.
QString titolo_mostrato(const QString& caption);

}  // namespace lokera
