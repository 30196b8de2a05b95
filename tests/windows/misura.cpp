#include "windows/misura.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QHeaderView>
#include <QLabel>
#include <QTableView>

#include "windows/disegno.h"
#include "windows/etichetta_dati.h"
#include "windows/lampada_widget.h"
#include "windows/lista.h"
#include "windows/tabella_lista.h"

namespace lokera::prova {

namespace {

bool stretto(const QWidget& w, const QString& testo, int margine = 0) {
  return w.fontMetrics().horizontalAdvance(testo) + margine > w.contentsRect().width() ||
         w.fontMetrics().height() > w.contentsRect().height();
}

void misura_lista(const TabellaLista& t, QStringList& guasti) {
  const QHeaderView& testata = *t.horizontalHeader();
  for (int i = 0; i < testata.count(); ++i) {
    const QString titolo = t.model()->headerData(i, Qt::Horizontal).toString();
    if (!t.isColumnHidden(i) && testata.sectionSizeHint(i) > t.columnWidth(i))
      guasti.append(t.parentWidget()->objectName() + u": "_s + titolo);
  }
}

bool testo_tagliato(const QWidget& w) {
  if (const auto* label = qobject_cast<const QLabel*>(&w)) {
    const bool a_capo = label->wordWrap();
    return a_capo ? w.heightForWidth(w.width()) > w.height() : stretto(w, label->text());
  }
  const auto* pulsante = qobject_cast<const QAbstractButton*>(&w);
  if (!pulsante || pulsante->text().isEmpty()) return false;
  return pulsante->sizeHint().width() > w.width() && stretto(w, pulsante->text(), 20);
}

}  // namespace

QStringList testi_tagliati(const QWidget& forma) {
  QStringList guasti;
  const auto tutti = widget_con_nome(forma);
  for (QWidget* w : tutti) {
    if (testo_tagliato(*w)) guasti.append(w->objectName() + u": "_s + w->property("text").toString());
    if (auto* lista = qobject_cast<Lista*>(w)) misura_lista(lista->tabella(), guasti);
  }
  return guasti;
}

QStringList fuori_posto(const QWidget& forma) {
  QStringList guasti;
  const auto tutti = widget_con_nome(forma);
  for (const QWidget* w : tutti) {
    const QWidget* sopra = w->parentWidget();
    if (sopra && !sopra->rect().contains(w->geometry())) guasti.append(w->objectName() + u" lies outside"_s);
    if (solo_contiene(*w)) continue;
    for (const QWidget* altro : tutti)
      if (altro > w && altro->parentWidget() == sopra && !solo_contiene(*altro) &&
          altro->geometry().intersects(w->geometry()))
        guasti.append(w->objectName() + u" and "_s + altro->objectName() + u" overlap"_s);
  }
  return guasti;
}

QStringList senza_nome_accessibile(const QWidget& forma) {
  QStringList guasti;
  const auto tutti = widget_con_nome(forma);
  for (QWidget* w : tutti) {
    auto* lista = qobject_cast<Lista*>(w);
    QWidget* letto = lista ? &lista->tabella() : w;
    const bool lampada = qobject_cast<LampadaWidget*>(w);
    if (!lampada && !(letto->focusPolicy() & Qt::TabFocus)) continue;
    if (QAccessible::queryAccessibleInterface(letto)->text(QAccessible::Name).isEmpty())
      guasti.append(w->objectName());
    if (lampada && w->accessibleDescription().isEmpty())
      guasti.append(w->objectName() + u" tells no state"_s);
  }
  return guasti;
}

QList<QWidget*> ordine_tab(QWidget& forma) {
  QList<QWidget*> catena;
  for (QWidget* w = forma.nextInFocusChain(); w != &forma; w = w->nextInFocusChain())
    if (w->isVisibleTo(&forma) && w->isEnabled() && (w->focusPolicy() & Qt::TabFocus) && !w->focusProxy())
      catena += w;
  return catena;
}

}  // namespace lokera::prova
