#include "windows/modello_griglia.h"

#include <QBrush>
#include <QFont>

#include "windows/lampada_widget.h"

namespace lokera {

namespace {

constexpr int righe_subito = 2000;
constexpr int ritardo_ms = 40;

Qt::Alignment posto(Allineamento a) {
  if (a == Allineamento::destra) return Qt::AlignRight | Qt::AlignVCenter;
  if (a == Allineamento::centro) return Qt::AlignCenter;
  return Qt::AlignLeft | Qt::AlignVCenter;
}

}  // namespace

ModelloGriglia::ModelloGriglia(SSOleDBGrid& grd, QObject* padre)
    : QAbstractTableModel(padre), grd_(&grd), righe_(grd.Rows()) {
  accodate_.setSingleShot(true);
  accodate_.setInterval(ritardo_ms);
  connect(&accodate_, &QTimer::timeout, this, &ModelloGriglia::allinea);
  grd.vista(this);
}

ModelloGriglia::~ModelloGriglia() {
  if (grd_) grd_->vista(nullptr);
}

void ModelloGriglia::lascia(bool vive) {
  dimentica_aspetti();
  if (!grd_) return;
  beginResetModel();
  if (vive) grd_->vista(nullptr);
  grd_ = nullptr;
  righe_ = 0;
  endResetModel();
}

int ModelloGriglia::columnCount(const QModelIndex& padre) const {
  return padre.isValid() || !grd_ ? 0 : grd_->Cols();
}

QVariant ModelloGriglia::sfondo(int riga) const {
  const Colore pari = grd_->BackColorEven;
  const Colore dispari = grd_->BackColorOdd;
  const Colore colore = riga % 2 ? dispari : pari == dispari ? bianco : pari;
  return QBrush(qcolor(colore));
}

const AspettoRiga& ModelloGriglia::aspetto(int riga) const {
  if (riga != riga_letta_) letto_ = grd_->aspetto(riga);
  riga_letta_ = riga;
  return letto_;
}

QVariant ModelloGriglia::carattere(int riga) const {
  const AspettoRiga& a = aspetto(riga);
  const StileRiga stile = stile_riga(a.stile);
  if (!a.grassetto && !stile.grassetto && !stile.corsivo) return {};
  QFont font;  // what isn't set here is the list's own
  font.setBold(a.grassetto || stile.grassetto);
  font.setItalic(stile.corsivo);
  return font;
}

QVariant ModelloGriglia::testo(int riga) const {
  const Colore colore = stile_riga(aspetto(riga).stile).testo;
  return colore == nero ? QVariant() : QVariant(QBrush(qcolor(colore)));
}

QVariant ModelloGriglia::data(const QModelIndex& indice, int ruolo) const {
  if (!grd_ || !indice.isValid()) return {};
  const int riga = indice.row();
  const int colonna = indice.column();
  const Colonna& c = grd_->Columns(colonna);
  const bool spunta = c.stile == StileCella::spunta;
  switch (ruolo) {
    case Qt::DisplayRole:
    case Qt::ToolTipRole:
      return spunta ? QVariant() : grd_->mostrata(aspetto(riga), riga, colonna);
    case Qt::EditRole:
      return grd_->cella(riga, colonna);
    case Qt::TextAlignmentRole:
      return QVariant::fromValue(posto(c.allineamento));
    case Qt::CheckStateRole:
      return spunta ? QVariant(grd_->spuntata(riga, colonna) ? Qt::Checked : Qt::Unchecked) : QVariant();
    case Qt::BackgroundRole:
      return sfondo(riga);
    case Qt::ForegroundRole:
      return testo(riga);
    case Qt::FontRole:
      return carattere(riga);
    case Qt::AccessibleDescriptionRole:
      return aspetto(riga).stile;
    default:
      return {};
  }
}

bool ModelloGriglia::setData(const QModelIndex& indice, const QVariant& valore, int ruolo) {
  return grd_ && ruolo == Qt::EditRole &&
         grd_->utente_modifica(indice.row(), indice.column(), valore.toString());
}

Qt::ItemFlags ModelloGriglia::flags(const QModelIndex& indice) const {
  if (!grd_ || !indice.isValid()) return Qt::NoItemFlags;
  Qt::ItemFlags f = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
  const bool spunta = grd_->Columns(indice.column()).stile == StileCella::spunta;
  if (!spunta && grd_->modificabile(indice.row(), indice.column())) f |= Qt::ItemIsEditable;
  return f;
}

QVariant ModelloGriglia::headerData(int sezione, Qt::Orientation verso, int ruolo) const {
  if (!grd_ || verso != Qt::Horizontal || sezione >= grd_->Cols()) return {};
  const Colonna& c = grd_->Columns(sezione);
  if (ruolo == Qt::DisplayRole) return c.Caption.trimmed();
  if (ruolo == Qt::TextAlignmentRole) return QVariant::fromValue(posto(c.allineamento));
  return {};
}

void ModelloGriglia::colonne_cambiate() {
  dimentica_aspetti();
  beginResetModel();
  righe_ = grd_->Rows();
  endResetModel();
}

void ModelloGriglia::allinea() {
  accodate_.stop();
  const int ora = grd_ ? grd_->Rows() : 0;
  if (ora > righe_) {
    beginInsertRows({}, righe_, ora - 1);
    righe_ = ora;
    endInsertRows();
  } else if (ora < righe_) {
    // Which rows went away isn't told; the cells are all drawn anew, so it doesn't matter.
    beginRemoveRows({}, ora, righe_ - 1);
    righe_ = ora;
    endRemoveRows();
  }
}

void ModelloGriglia::righe_cambiate() {
  dimentica_aspetti();
  allinea();
  if (righe_ > 0 && columnCount() > 0) Q_EMIT dataChanged(index(0, 0), index(righe_ - 1, columnCount() - 1));
}

void ModelloGriglia::riga_cambiata(int riga) {
  dimentica_aspetti();
  if (riga < righe_ && columnCount() > 0) Q_EMIT dataChanged(index(riga, 0), index(riga, columnCount() - 1));
}

void ModelloGriglia::righe_aggiunte(int prima, int quante) {
  if (prima + quante <= righe_subito) return allinea();
  if (!accodate_.isActive()) accodate_.start();
}

void ModelloGriglia::riga_corrente(int riga) {
  dimentica_aspetti();
  allinea();
  Q_EMIT corrente(riga);
}

}  // namespace lokera
