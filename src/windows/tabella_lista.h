#pragma once

#include <QPointer>
#include <QTableView>

#include "windows/delegato_lista.h"
#include "windows/modello_griglia.h"

namespace lokera {

/// The rows of a list on the screen. All that the user does goes to the list's state, which decides.
///
/// Keys: Return (and Tab where cells can be edited) goes to the next cell, past the last one to a new row;
/// Insert, or Down from the last row, adds a row; Delete or Ctrl+Delete removes the current one; Space turns
/// a check; Ctrl+1 to Ctrl+9 orders by that column of those that show, as a click on its head does; F2 or
/// typing edits a cell, Esc leaves it as it was; Ctrl+Tab leaves the list.
///
/// The current row is highlighted and no more than that. Rows are selected with Ctrl or Shift, or several by
/// dragging over them.
class TabellaLista : public QTableView {
  Q_OBJECT
 public:
  explicit TabellaLista(QWidget* padre = nullptr);

  void collega(SSOleDBGrid& grd);
  void scollega(bool vive);
  bool in_modifica() const { return state() == EditingState; }
  /// Hands the cell in edit over to the list.
  void conferma();

 protected:
  void paintEvent(QPaintEvent* evento) override;
  void keyPressEvent(QKeyEvent* evento) override;
  void mousePressEvent(QMouseEvent* evento) override;
  void mouseReleaseEvent(QMouseEvent* evento) override;
  void currentChanged(const QModelIndex& corrente, const QModelIndex& precedente) override;
  QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& indice,
                                                       const QEvent* evento) const override;
  void selectionChanged(const QItemSelection& scelte, const QItemSelection& lasciate) override;
  bool focusNextPrevChild(bool avanti) override;

 private:
  SSOleDBGrid* grd() const { return modello_ ? modello_->grd() : nullptr; }
  bool tasto(int codice, Qt::KeyboardModifiers modi);
  bool spazio();
  void elimina();
  void ordina(int colonna);
  void mostra_ordine();
  int visibile(int quale) const;  ///< the column that shows at this place, counted from 0; -1 for none
  void avanti();
  void indietro();
  void disponi_colonne();
  void allargata(int colonna, int pixel);
  void riferisci_scelta();
  void segui(int riga);

  QPointer<ModelloGriglia> modello_;
  bool segue_ = false;    ///< the list moves the view, not the user
  bool dispone_ = false;  ///< the list sets the columns' widths, not the user
  bool sceglie_ = false;  ///< the last key or button came with Ctrl or Shift
};

}  // namespace lokera
