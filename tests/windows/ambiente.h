#pragma once

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>

#include "aiuti/banco.h"
#include "app/schermo_console.h"

namespace lokera::prova {

/// A console on a virtual machine with its windows drawn on a screen of the given size.
class BancoDisegnato : public Banco {
 public:
  explicit BancoDisegnato(const QRect& disponibile = {0, 0, 1280, 800}) : disponibile_(disponibile) {}
  SchermoConsole& schermo() {
    if (!schermo_) schermo_ = std::make_unique<SchermoConsole>(*console, disponibile_);
    return *schermo_;
  }
  QWidget& forma() { return *schermo().forma(main()); }
  template <class W>
  W& widget(const char* nome) {
    auto* w = forma().findChild<W*>(QString::fromUtf8(nome));
    EXPECT_TRUE(w) << nome;
    return *w;
  }
  void carica() {
    schermo();
    main().Form_Load();
    QCoreApplication::processEvents();
  }

 private:
  QRect disponibile_;
  std::unique_ptr<SchermoConsole> schermo_;
};

/// Editors that were closed go away.
inline void ripulisci() {
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

/// The left button at a place of the widget, pressed and left again.
inline void clicca(QWidget& w, const QPointF& dove, Qt::KeyboardModifiers modi = {},
                   QEvent::Type come = QEvent::MouseButtonPress) {
  for (const QEvent::Type tipo : {come, QEvent::MouseButtonRelease}) {
    const Qt::MouseButtons tenuti = tipo == come ? Qt::LeftButton : Qt::NoButton;
    QMouseEvent evento(tipo, dove, w.mapToGlobal(dove), Qt::LeftButton, tenuti, modi);
    QApplication::sendEvent(&w, &evento);
  }
}

inline void premi(QWidget& widget, int tasto, const QString& testo = {}, Qt::KeyboardModifiers modi = {}) {
  QKeyEvent giu(QEvent::KeyPress, tasto, modi, testo);
  QApplication::sendEvent(&widget, &giu);
  QKeyEvent su(QEvent::KeyRelease, tasto, modi, testo);
  QApplication::sendEvent(&widget, &su);
}

inline void scrivi(QWidget& widget, const QString& testo) {
  for (const QChar c : testo) premi(widget, c.isDigit() ? Qt::Key_0 : Qt::Key_A, c);
}

}  // namespace lokera::prova
