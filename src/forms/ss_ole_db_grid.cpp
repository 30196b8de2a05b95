#include "forms/ss_ole_db_grid.h"

#include <algorithm>
#include <utility>

#include "forms/visita_controlli.h"

namespace lokera {

namespace {
bool stesso_nome(QStringView a, QStringView b) {
  return a.compare(b, Qt::CaseInsensitive) == 0;
}
}  // namespace

void SSOleDBGrid::accetta(VisitaControlli& visita) {
  visita.visita(*this);
}

void SSOleDBDropDown::accetta(VisitaControlli& visita) {
  visita.visita(*this);
}

void SSOleDBGrid::traduci_titoli(const Traduzione& traduci) {
  Controllo::traduci_titoli(traduci);
  traduci_colonne(*this, traduci);
}

bool SSOleDBGrid::valida(int riga, int colonna) const {
  return riga >= 0 && riga < Rows() && colonna >= 0 && colonna < Cols();
}

int SSOleDBGrid::colonna(QStringView campo) const {
  const auto it =
      std::ranges::find_if(colonne_, [&](const Colonna& c) { return stesso_nome(c.campo, campo); });
  return it == colonne_.end() ? -1 : static_cast<int>(it - colonne_.begin());
}

int SSOleDBGrid::colonna_con_titolo(QStringView caption) const {
  const auto it =
      std::ranges::find_if(colonne_, [&](const Colonna& c) { return stesso_nome(c.Caption, caption); });
  return it == colonne_.end() ? -1 : static_cast<int>(it - colonne_.begin());
}

void SSOleDBGrid::imposta_colonne(std::vector<Colonna> colonne) {
  colonne_ = std::move(colonne);
  col_ = std::clamp(col_, 0, std::max(0, Cols() - 1));
  if (vista_) vista_->colonne_cambiate();
}

void SSOleDBGrid::imposta_colonna(int i, const Colonna& colonna) {
  colonne_[static_cast<size_t>(i)] = colonna;
  if (vista_) vista_->colonne_cambiate();
}

void SSOleDBGrid::RemoveAll() {
  righe_.svuota();
  selezionate_.clear();
  ordine_ = {};
  riga_ = modificata_ = nuova_ = -1;
  ++svuotamenti_;
  if (vista_) vista_->righe_cambiate();
}

void SSOleDBGrid::AddItem(const QStringList& celle) {
  QByteArray riga;
  for (const QString& cella : celle) riga += QString(cella).replace(u'\t', u' ').toUtf8() + '\t';
  riga.chop(1);
  AddItem(riga);
}

void SSOleDBGrid::AddItem(QByteArrayView riga_con_tab) {
  righe_.aggiungi(riga_con_tab);
  riga_aggiunta();
}

void SSOleDBGrid::riga_aggiunta() {
  ordine_ = {};
  if (ridisegna_ && vista_) vista_->righe_aggiunte(Rows() - 1, 1);
}

void SSOleDBGrid::ReDraw(int righe_da) {
  if (vista_ && righe_da < Rows()) vista_->righe_aggiunte(righe_da, Rows() - righe_da);
}

void SSOleDBGrid::togli(int riga) {
  righe_.togli(riga);
  for (int* segno : {&modificata_, &nuova_}) {
    if (*segno == riga) *segno = -1;
    if (*segno > riga) --*segno;
  }
  std::erase(selezionate_, riga);
  for (int& scelta : selezionate_) scelta -= scelta > riga;
  if (riga_ > riga || riga_ >= Rows()) --riga_;
}

void SSOleDBGrid::RemoveItem(int riga) {
  if (riga < 0 || riga >= Rows()) return;
  togli(riga);
  if (!vista_) return;
  vista_->righe_cambiate();
  vista_->riga_corrente(riga_);
}

QString SSOleDBGrid::cella(int riga, int colonna) const {
  return valida(riga, colonna) ? QString::fromUtf8(righe_.cella(riga, colonna)) : QString();
}

QString SSOleDBGrid::cella(int riga, QStringView campo) const {
  return cella(riga, colonna(campo));
}

void SSOleDBGrid::imposta_cella(int riga, int colonna, const QString& testo) {
  if (!valida(riga, colonna)) return;
  righe_.imposta_cella(riga, colonna, testo.toUtf8());
  if (vista_) vista_->riga_cambiata(riga);
}

void SSOleDBGrid::imposta_cella(int riga, QStringView campo, const QString& testo) {
  imposta_cella(riga, colonna(campo), testo);
}

AspettoRiga SSOleDBGrid::aspetto(int riga) const {
  AspettoRiga a;
  if (riga < 0 || riga >= Rows()) return a;
  if (RowLoaded) RowLoaded(riga, a);
  if (riga == riga_ && stile_riga(ActiveRowStyleSet()).grassetto) a.grassetto = true;
  return a;
}

QString SSOleDBGrid::mostrata(const AspettoRiga& aspetto, int riga, int colonna) const {
  const auto it =
      std::ranges::find_if(aspetto.celle, [&](const auto& cella) { return cella.first == colonna; });
  return it == aspetto.celle.end() ? cella(riga, colonna) : it->second;
}

bool SSOleDBGrid::spuntata(int riga, int colonna) const {
  return cella(riga, colonna) == testo_spuntato;
}

void SSOleDBGrid::Row(int riga) {
  if (riga >= 0 && riga < Rows()) sposta(riga, col_);
}

void SSOleDBGrid::Col(int col) {
  if (col >= 0 && col < Cols()) sposta(riga_, col);
}

void SSOleDBGrid::sposta(int riga, int col) {
  if (riga != riga_) conferma();
  muovi(riga, col);
}

void SSOleDBGrid::muovi(int riga, int col) {
  if (riga != riga_) riga = lascia_riga(riga);
  if (riga >= Rows() || (riga == riga_ && col == col_)) return;
  riga_ = riga;
  col_ = col;
  if (vista_) vista_->riga_corrente(riga_);
  if (RowColChange) RowColChange();
}

void SSOleDBGrid::conferma() {
  if (vista_) vista_->modifica_da_confermare();
}

/// Returns the number that row `verso` has then.
int SSOleDBGrid::lascia_riga(int verso) {
  const int nuova = nuova_;
  chiudi_riga();
  return nuova >= 0 && verso > nuova ? verso - 1 : verso;  // an untouched new row went away
}

void SSOleDBGrid::Update() {
  conferma();
  chiudi_riga();
}

void SSOleDBGrid::chiudi_riga() {
  scarta_riga_nuova();
  const int riga = std::exchange(modificata_, -1);
  if (riga >= 0 && AfterUpdate) AfterUpdate(riga);
}

void SSOleDBGrid::scarta_riga_nuova() {
  if (nuova_ >= 0) RemoveItem(nuova_);
}

}  // namespace lokera
