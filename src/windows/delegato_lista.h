#pragma once

#include <QStyledItemDelegate>

namespace lokera {

class ModelloGriglia;

/// Draws the cells of a list and makes what edits them: a line of text, or a list of choices.
class DelegatoLista : public QStyledItemDelegate {
  Q_OBJECT
 public:
  DelegatoLista(ModelloGriglia& modello, QObject* padre);

  QWidget* createEditor(QWidget* padre, const QStyleOptionViewItem& opzione,
                        const QModelIndex& indice) const override;
  void setEditorData(QWidget* editor, const QModelIndex& indice) const override;
  void setModelData(QWidget* editor, QAbstractItemModel* modello, const QModelIndex& indice) const override;
  void paint(QPainter* p, const QStyleOptionViewItem& opzione, const QModelIndex& indice) const override;
  void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& opzione,
                            const QModelIndex& indice) const override;
  bool eventFilter(QObject* oggetto, QEvent* evento) override;

 Q_SIGNALS:
  void avanti();              ///< Return or Tab in the cell, after its edit was handed over
  void indietro();            ///< Shift+Tab
  void esce(bool in_avanti);  ///< Ctrl+Tab, likewise with Shift: out of the list

 private:
  QWidget* crea_scelta(QWidget* padre, const QModelIndex& indice) const;

  ModelloGriglia& modello_;
};

}  // namespace lokera
