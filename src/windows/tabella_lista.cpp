#include "windows/tabella_lista.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QScopedValueRollback>

#include <vector>

namespace lokera {

TabellaLista::TabellaLista(QWidget* padre) : QTableView(padre) {
  verticalHeader()->hide();
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 7);
  verticalHeader()->setMinimumSectionSize(10);
  horizontalHeader()->setHighlightSections(false);
  setSelectionBehavior(SelectRows);
  setSelectionMode(ExtendedSelection);
  setEditTriggers(DoubleClicked | EditKeyPressed | AnyKeyPressed);
  setTabKeyNavigation(false);
  setShowGrid(false);
  setWordWrap(false);
  setFrameShape(NoFrame);
}

void TabellaLista::collega(SSOleDBGrid& grd) {
  modello_ = new ModelloGriglia(grd, this);
  setModel(modello_);
  auto* delegato = new DelegatoLista(*modello_, this);
  setItemDelegate(delegato);
  connect(delegato, &DelegatoLista::avanti, this, &TabellaLista::avanti);
  connect(delegato, &DelegatoLista::indietro, this, &TabellaLista::indietro);
  connect(delegato, &DelegatoLista::esce, this,
          [this](bool in_avanti) { QTableView::focusNextPrevChild(in_avanti); });
  connect(modello_, &ModelloGriglia::corrente, this, &TabellaLista::segui);
  connect(modello_, &ModelloGriglia::conferma, this, &TabellaLista::conferma);
  connect(modello_, &QAbstractItemModel::modelReset, this, &TabellaLista::disponi_colonne);
  connect(horizontalHeader(), &QHeaderView::sectionResized, this,
          [this](int colonna, int, int pixel) { allargata(colonna, pixel); });
  connect(horizontalHeader(), &QHeaderView::sectionClicked, this, &TabellaLista::ordina);
  connect(modello_, &QAbstractItemModel::rowsRemoved, this, &TabellaLista::mostra_ordine);
  disponi_colonne();
  segui(grd.Row());
}

void TabellaLista::scollega(bool vive) {
  if (modello_) modello_->lascia(vive);
}

void TabellaLista::disponi_colonne() {
  if (!grd()) return;
  const QScopedValueRollback guida(dispone_, true);
  // Words may take the room that is left; an hour or a number would stand far from its row's others.
  bool allarga = false;
  for (int i = 0; i < grd()->Cols(); ++i) {
    const Colonna& c = grd()->Columns(i);
    setColumnHidden(i, !c.Visible);
    setColumnWidth(i, c.Width / unita_per_pixel);
    if (c.Visible) allarga = c.allineamento == Allineamento::sinistra && c.stile == StileCella::testo;
  }
  horizontalHeader()->setStretchLastSection(allarga);
  segui(grd()->Row());
}

// A column that takes the room that is left is as wide as the list makes it; hiding one tells a width of 0.
void TabellaLista::allargata(int colonna, int pixel) {
  const QHeaderView& testata = *horizontalHeader();
  const bool ultima = testata.stretchLastSection() && testata.visualIndex(colonna) == testata.count() - 1;
  if (!dispone_ && !ultima && pixel > 0 && grd()) grd()->utente_allarga(colonna, pixel * unita_per_pixel);
}

void TabellaLista::segui(int riga) {
  if (!grd()) return;
  mostra_ordine();
  const QScopedValueRollback guida(segue_, true);
  const QModelIndex dove = riga < 0 ? QModelIndex() : modello_->index(riga, grd()->Col());
  if (dove.isValid() && isColumnHidden(dove.column()))
    selectRow(riga);
  else if (dove != currentIndex() || !selectionModel()->hasSelection())
    setCurrentIndex(dove);
  if (dove.isValid()) scrollTo(dove);
}

void TabellaLista::conferma() {
  if (!in_modifica()) return;
  const QPointer<QWidget> editor = indexWidget(currentIndex());
  if (!editor) return;
  commitData(editor);
  if (editor) closeEditor(editor, QAbstractItemDelegate::NoHint);
}

void TabellaLista::currentChanged(const QModelIndex& corrente, const QModelIndex& precedente) {
  QTableView::currentChanged(corrente, precedente);
  if (segue_ || !grd() || !corrente.isValid()) return;
  const QPointer<TabellaLista> io(this);
  grd()->utente_sceglie(corrente.row(), corrente.column());
  if (io && grd() && grd()->Row() != currentIndex().row()) segui(grd()->Row());
}

// Ctrl on the row that is highlighted because it is the current one selects it.
QItemSelectionModel::SelectionFlags TabellaLista::selectionCommand(const QModelIndex& indice,
                                                                   const QEvent* evento) const {
  const bool premuto = evento && evento->type() == QEvent::MouseButtonPress;
  if (premuto && grd() && indice.row() == grd()->Row() && grd()->selezionate().empty() &&
      static_cast<const QMouseEvent*>(evento)->modifiers() == Qt::ControlModifier)
    return QItemSelectionModel::Select | QItemSelectionModel::Rows;
  return QTableView::selectionCommand(indice, evento);
}

void TabellaLista::selectionChanged(const QItemSelection& scelte, const QItemSelection& lasciate) {
  QTableView::selectionChanged(scelte, lasciate);
  riferisci_scelta();
}

void TabellaLista::riferisci_scelta() {
  if (!grd()) return;
  std::vector<int> righe;
  const QItemSelection tutte = selectionModel()->selection();
  for (const QItemSelectionRange& tratto : tutte)
    for (int riga = tratto.top(); riga <= tratto.bottom(); ++riga) righe.push_back(riga);
  if (segue_ || (righe.size() <= 1 && !sceglie_)) righe.clear();
  grd()->utente_seleziona(std::move(righe));
}

void TabellaLista::paintEvent(QPaintEvent* evento) {
  if (modello_) modello_->dimentica_aspetti();
  QTableView::paintEvent(evento);
}

void TabellaLista::avanti() {
  if (grd() && !grd()->utente_avanti()) QTableView::focusNextPrevChild(true);
}

void TabellaLista::indietro() {
  if (grd() && !grd()->utente_indietro()) QTableView::focusNextPrevChild(false);
}

// A list that can't be edited doesn't hold the Tab key back: it may have a million rows.
bool TabellaLista::focusNextPrevChild(bool in_avanti) {
  if (!grd() || !grd()->AllowUpdate()) return QTableView::focusNextPrevChild(in_avanti);
  if (in_avanti)
    avanti();
  else
    indietro();
  return true;
}

void TabellaLista::elimina() {
  conferma();
  if (grd()) grd()->utente_elimina(grd()->Row());
}

void TabellaLista::ordina(int colonna) {
  const QPointer<TabellaLista> io(this);
  if (!grd() || !grd()->OrdinabileDaTestata()) return;
  grd()->utente_ordina(colonna);
  if (!io || !grd()) return;
  selectionModel()->clearSelection();  // it would stay on places where other rows are now
  segui(grd()->Row());
}

void TabellaLista::mostra_ordine() {
  if (!grd()) return;
  const auto [colonna, decrescente] = grd()->ordine();
  horizontalHeader()->setSortIndicatorShown(colonna >= 0);
  horizontalHeader()->setSortIndicator(colonna, decrescente ? Qt::DescendingOrder : Qt::AscendingOrder);
}

int TabellaLista::visibile(int quale) const {
  for (int i = 0; i < grd()->Cols(); ++i)
    if (!isColumnHidden(i) && quale-- == 0) return i;
  return -1;
}

bool TabellaLista::spazio() {
  const QModelIndex qui = currentIndex();
  if (!qui.isValid() || grd()->Columns(qui.column()).stile != StileCella::spunta) return false;
  grd()->utente_inverte_spunta(qui.row(), qui.column());
  return true;
}

bool TabellaLista::tasto(int codice, Qt::KeyboardModifiers modi) {
  if (modi == Qt::ControlModifier && codice >= Qt::Key_1 && codice <= Qt::Key_9) {
    ordina(visibile(codice - Qt::Key_1));
    return true;
  }
  switch (codice) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
      grd()->utente_avanti();
      return true;
    case Qt::Key_Delete:
      elimina();
      return true;
    case Qt::Key_Insert:
      return grd()->utente_aggiunge_riga() >= 0;
    case Qt::Key_Down:
      return modi == Qt::NoModifier && grd()->Row() == grd()->Rows() - 1 &&
             grd()->utente_aggiunge_riga() >= 0;
    case Qt::Key_Space:
      return spazio();
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
      if (!modi.testFlag(Qt::ControlModifier)) return false;
      QTableView::focusNextPrevChild(codice == Qt::Key_Tab);
      return true;
    default:
      return false;
  }
}

namespace {
bool con_scelta(const QInputEvent& evento) {
  return evento.modifiers().testAnyFlags(Qt::ControlModifier | Qt::ShiftModifier);
}
}  // namespace

void TabellaLista::keyPressEvent(QKeyEvent* evento) {
  sceglie_ = con_scelta(*evento);
  if (!grd() || !tasto(evento->key(), evento->modifiers() & ~Qt::KeypadModifier))
    QTableView::keyPressEvent(evento);
}

// Beside a row's last cell the row is meant, below the last row a new one.
void TabellaLista::mousePressEvent(QMouseEvent* evento) {
  const QPoint dove = evento->position().toPoint();
  sceglie_ = con_scelta(*evento);
  if (evento->button() != Qt::LeftButton || indexAt(dove).isValid() || !grd()) {
    const QPointer<TabellaLista> io(this);
    QTableView::mousePressEvent(evento);
    if (io) riferisci_scelta();
    return;
  }
  conferma();
  if (const int riga = rowAt(dove.y()); riga >= 0)
    setCurrentIndex(modello_->index(riga, grd()->Col()));
  else
    grd()->utente_aggiunge_riga();
}

void TabellaLista::mouseReleaseEvent(QMouseEvent* evento) {
  QTableView::mouseReleaseEvent(evento);
  const QModelIndex dove = indexAt(evento->position().toPoint());
  if (evento->button() != Qt::LeftButton || !dove.isValid() || dove != currentIndex() || !grd()) return;
  const QPointer<TabellaLista> io(this);
  const bool spunta = grd()->Columns(dove.column()).stile == StileCella::spunta;
  grd()->utente_clicca(dove.row(), dove.column());
  if (spunta && io && grd()) grd()->utente_inverte_spunta(dove.row(), dove.column());
}

}  // namespace lokera
