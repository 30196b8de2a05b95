#include "windows/disegno.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QStyle>
#include <QTextEdit>

#include <algorithm>

#include "forms/ridimensiona.h"
#include "windows/lampada_widget.h"
#include "windows/lista.h"
#include "windows/riquadro.h"

namespace lokera {

using namespace Qt::StringLiterals;

namespace {

constexpr double parcheggio = 5000;
constexpr int bordo = 2;  ///< of the window's frame, at its sides and below

bool contenitore(const QWidget& w) {
  return w.metaObject() == &QWidget::staticMetaObject || w.metaObject() == &QFrame::staticMetaObject ||
         qobject_cast<const QGroupBox*>(&w) || qobject_cast<const Riquadro*>(&w) || w.isWindow();
}

template <class F>
void visita(const QWidget& sopra, const F& fai) {
  for (QObject* figlio : sopra.children()) {
    auto* w = qobject_cast<QWidget*>(figlio);
    if (!w || w->isWindow() || qobject_cast<QMenuBar*>(w)) continue;
    fai(*w);
    if (contenitore(*w)) visita(*w, fai);
  }
}

ClasseControllo classe(const QWidget& w) {
  if (qobject_cast<const QLabel*>(&w)) return ClasseControllo::label;
  if (qobject_cast<const QPushButton*>(&w)) return ClasseControllo::command_button;
  if (const auto* riga = qobject_cast<const QLineEdit*>(&w))
    return riga->inputMask().isEmpty() ? ClasseControllo::text_box : ClasseControllo::mask_ed_box;
  if (qobject_cast<const QComboBox*>(&w)) return ClasseControllo::combo_box;
  if (qobject_cast<const QTextEdit*>(&w) || qobject_cast<const QPlainTextEdit*>(&w))
    return ClasseControllo::text_box;
  const auto* barra = qobject_cast<const QScrollBar*>(&w);
  return barra && barra->orientation() == Qt::Horizontal ? ClasseControllo::h_scroll_bar
                                                         : ClasseControllo::altro;
}

Geometria geometria(const QWidget& w) {
  Geometria g;
  g.classe = classe(w);
  g.multi_line = g.classe == ClasseControllo::text_box && !qobject_cast<const QLineEdit*>(&w);
  g.tag = w.property("Tag").toString();
  g.tag_contenitore = w.parentWidget() ? w.parentWidget()->property("Tag").toString() : QString();
  g.left = w.x(), g.top = w.y(), g.width = w.width(), g.height = w.height();
  return g;
}

/// Room of the frame around a window, which counts as part of it.
int barra_titolo(const QWidget& forma) {
  return forma.style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, &forma) + bordo;
}

}  // namespace

QHash<QString, QWidget*> widget_con_nome(const QWidget& forma) {
  QHash<QString, QWidget*> tutti;
  visita(forma, [&tutti](QWidget& w) {
    if (!w.objectName().isEmpty() && !w.objectName().startsWith(u"qt_"_s)) tutti.insert(w.objectName(), &w);
  });
  return tutti;
}

bool solo_contiene(const QWidget& widget) {
  return contenitore(widget);
}

bool stira(QWidget& forma, const QRect& schermo, bool adatta) {
  const auto* principale = qobject_cast<QMainWindow*>(&forma);
  const QWidget* centro = principale ? principale->centralWidget() : &forma;
  std::vector<QWidget*> widget;
  visita(*centro, [&widget](QWidget& w) { widget.push_back(&w); });
  std::vector<Geometria> controlli;
  std::ranges::transform(widget, std::back_inserter(controlli),
                         [](const QWidget* w) { return geometria(*w); });
  GeometriaFinestra finestra{0, 0, forma.width() + 2.0 * bordo,
                             static_cast<double>(forma.height() + barra_titolo(forma))};
  bool stirata = false;
  if (adatta)
    stirata = ridimensiona_form(finestra, controlli, schermo.width(), schermo.height(), parcheggio);
  else
    centra_form(finestra, schermo.width(), schermo.height());
  if (!stirata) {
    forma.move(schermo.x() + std::max(0, static_cast<int>(finestra.left)),
               schermo.y() + std::max(0, static_cast<int>(finestra.top)));
    forma.setFixedSize(forma.size());
    return false;
  }
  for (size_t i = 0; i < widget.size(); ++i) {
    const Geometria& g = controlli[i];
    widget[i]->setGeometry(QRectF(g.left, g.top, g.width, g.height).toRect());
  }
  forma.move(schermo.topLeft());
  forma.setFixedSize(schermo.width() - 2 * bordo, schermo.height() - barra_titolo(forma));
  return true;
}

}  // namespace lokera
