#include "windows/delegato_lista.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <QPointer>

#include <algorithm>

#include "windows/modello_griglia.h"

namespace lokera {

using namespace Qt::StringLiterals;

namespace {

/// The entry that the text of a choice means: the one that was picked or completed while typing, or whose
/// value was typed; -1 for none.
int voce_scelta(const QComboBox& scelta, const SSOleDBDropDown& elenco) {
  const int corrente = scelta.currentIndex();
  const QString testo = scelta.currentText();
  if (corrente >= 0 && scelta.itemText(corrente) == testo) return corrente;
  if (const int completata = scelta.findText(testo, Qt::MatchFixedString); completata >= 0) return completata;
  const auto& voci = elenco.voci();
  const auto it = std::ranges::find_if(voci, [&testo](const QStringList& voce) {
    return voce.value(0).trimmed().compare(testo.trimmed(), Qt::CaseInsensitive) == 0;
  });
  return it == voci.end() ? -1 : static_cast<int>(it - voci.begin());
}

}  // namespace

DelegatoLista::DelegatoLista(ModelloGriglia& modello, QObject* padre)
    : QStyledItemDelegate(padre), modello_(modello) {}

QWidget* DelegatoLista::createEditor(QWidget* padre, const QStyleOptionViewItem&,
                                     const QModelIndex& indice) const {
  if (!modello_.grd()) return nullptr;
  const Colonna& c = modello_.grd()->Columns(indice.column());
  if (c.elenco) return crea_scelta(padre, indice);
  auto* riga = new QLineEdit(padre);
  riga->setFrame(false);
  if (c.caratteri > 0) riga->setMaxLength(c.caratteri);
  riga->setAccessibleName(c.Caption);
  return riga;
}

QWidget* DelegatoLista::crea_scelta(QWidget* padre, const QModelIndex& indice) const {
  const Colonna& c = modello_.grd()->Columns(indice.column());
  auto* scelta = new QComboBox(padre);
  scelta->setEditable(true);
  scelta->setInsertPolicy(QComboBox::NoInsert);
  scelta->setAccessibleName(c.Caption);
  for (const QStringList& voce : c.elenco->voci()) scelta->addItem(voce.join(u"   "_s));
  scelta->view()->setMinimumWidth(scelta->view()->sizeHintForColumn(0) + 30);
  connect(scelta, &QComboBox::activated, this, [this, editor = QPointer<QWidget>(scelta)] {
    auto* delegato = const_cast<DelegatoLista*>(this);
    Q_EMIT delegato->commitData(editor);
    if (editor) Q_EMIT delegato->closeEditor(editor);
  });
  return scelta;
}

void DelegatoLista::setEditorData(QWidget* editor, const QModelIndex& indice) const {
  const QString testo = indice.data(Qt::EditRole).toString();
  if (auto* riga = qobject_cast<QLineEdit*>(editor)) {
    riga->setText(testo);
    riga->selectAll();
  } else if (auto* scelta = qobject_cast<QComboBox*>(editor); scelta && modello_.grd()) {
    scelta->setCurrentIndex(-1);
    scelta->setEditText(testo);
    if (const int voce = voce_scelta(*scelta, *modello_.grd()->Columns(indice.column()).elenco); voce >= 0)
      scelta->setCurrentIndex(voce);
    scelta->lineEdit()->selectAll();
  }
}

void DelegatoLista::setModelData(QWidget* editor, QAbstractItemModel* modello,
                                 const QModelIndex& indice) const {
  if (auto* riga = qobject_cast<QLineEdit*>(editor)) {
    modello->setData(indice, riga->text());
  } else if (auto* scelta = qobject_cast<QComboBox*>(editor); scelta && modello_.grd()) {
    SSOleDBGrid& grd = *modello_.grd();
    const int voce = voce_scelta(*scelta, *grd.Columns(indice.column()).elenco);
    if (voce >= 0)
      grd.utente_sceglie_voce(indice.row(), indice.column(), voce);
    else
      grd.utente_modifica(indice.row(), indice.column(), scelta->currentText());
  }
}

void DelegatoLista::updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& opzione,
                                         const QModelIndex& indice) const {
  QRect posto = opzione.rect;
  if (const Colonna& c = modello_.grd()->Columns(indice.column()); c.elenco)
    posto.setWidth(std::max(posto.width(), 120));  // a choice needs room for its words
  editor->setGeometry(posto);
}

bool DelegatoLista::eventFilter(QObject* oggetto, QEvent* evento) {
  const QPointer<QWidget> editor = qobject_cast<QWidget*>(oggetto);
  if (!editor || evento->type() != QEvent::KeyPress) return QStyledItemDelegate::eventFilter(oggetto, evento);
  const auto& battuta = *static_cast<QKeyEvent*>(evento);
  const int tasto = battuta.key();
  const bool in_avanti = tasto == Qt::Key_Return || tasto == Qt::Key_Enter || tasto == Qt::Key_Tab;
  if (!in_avanti && tasto != Qt::Key_Backtab) return QStyledItemDelegate::eventFilter(oggetto, evento);
  Q_EMIT commitData(editor);
  if (editor) Q_EMIT closeEditor(editor);  // a handler's box may have outlived it
  if (battuta.modifiers().testFlag(Qt::ControlModifier))
    Q_EMIT esce(in_avanti);
  else if (in_avanti)
    Q_EMIT avanti();
  else
    Q_EMIT indietro();
  return true;
}

void DelegatoLista::paint(QPainter* p, const QStyleOptionViewItem& opzione, const QModelIndex& indice) const {
  QStyleOptionViewItem o(opzione);
  o.state &= ~QStyle::State_HasFocus;
  const QVariant spunta = indice.data(Qt::CheckStateRole);
  if (!spunta.isValid()) return QStyledItemDelegate::paint(p, o, indice);
  initStyleOption(&o, indice);
  o.features &= ~QStyleOptionViewItem::HasCheckIndicator;
  QStyle& stile = *(o.widget ? o.widget->style() : QApplication::style());
  stile.drawControl(QStyle::CE_ItemViewItem, &o, p, o.widget);
  QStyleOptionButton segno;
  segno.rect = QStyle::alignedRect(Qt::LeftToRight, Qt::AlignCenter,
                                   {stile.pixelMetric(QStyle::PM_IndicatorWidth, nullptr, o.widget),
                                    stile.pixelMetric(QStyle::PM_IndicatorHeight, nullptr, o.widget)},
                                   opzione.rect);
  segno.palette = opzione.palette;
  segno.state =
      QStyle::State_Enabled | (spunta.toInt() == Qt::Checked ? QStyle::State_On : QStyle::State_Off);
  stile.drawPrimitive(QStyle::PE_IndicatorCheckBox, &segno, p, o.widget);
}

}  // namespace lokera
