// What the user does in a list.
#include <algorithm>
#include <utility>

#include "forms/ss_ole_db_grid.h"

namespace lokera {

bool SSOleDBGrid::modificabile(int riga, int colonna) const {
  return Enabled() && AllowUpdate() && valida(riga, colonna) && !Columns(colonna).bloccata;
}

bool SSOleDBGrid::utente_modifica(int riga, int colonna, const QString& testo) {
  if (!modificabile(riga, colonna)) return false;
  const int massimo = Columns(colonna).caratteri;
  const QString nuovo = massimo > 0 ? testo.left(massimo) : testo;
  if (nuovo == cella(riga, colonna)) return true;
  imposta_cella(riga, colonna, nuovo);
  modificata_ = riga;
  if (nuova_ == riga) nuova_ = -1;
  if (Change) Change(riga, colonna);
  return true;
}

bool SSOleDBGrid::utente_inverte_spunta(int riga, int colonna) {
  const QStringView testo = spuntata(riga, colonna) ? testo_non_spuntato : testo_spuntato;
  return utente_modifica(riga, colonna, testo.toString());
}

bool SSOleDBGrid::utente_sceglie_voce(int riga, int colonna, int voce) {
  SSOleDBDropDown* elenco = valida(riga, colonna) ? Columns(colonna).elenco : nullptr;
  if (!elenco || voce < 0 || voce >= static_cast<int>(elenco->voci().size())) return false;
  if (!utente_modifica(riga, colonna, elenco->voci()[static_cast<size_t>(voce)].value(0))) return false;
  if (elenco->CloseUp) elenco->CloseUp(voce);
  return true;
}

void SSOleDBGrid::utente_sceglie(int riga, int colonna) {
  if (valida(riga, colonna)) sposta(riga, colonna);
}

void SSOleDBGrid::utente_clicca(int riga, int colonna) {
  utente_sceglie(riga, colonna);
  if (Click) Click();
}

int SSOleDBGrid::utente_aggiunge_riga() {
  if (!Enabled() || !AllowAddNew()) return -1;
  conferma();
  return aggiungi_riga();
}

int SSOleDBGrid::aggiungi_riga() {
  chiudi_riga();
  righe_.aggiungi({});
  ordine_ = {};
  const int riga = Rows() - 1;
  if (vista_) vista_->righe_aggiunte(riga, 1);
  muovi(riga, col_);
  nuova_ = riga_;
  vai(cella_dopo({riga_, -1}));  // whatever column the user came from, a row is written from its start
  return riga_;
}

bool SSOleDBGrid::utente_elimina(int riga) {
  if (!Enabled() || !AllowDelete() || riga < 0 || riga >= Rows()) return false;
  if (riga == nuova_) {  // nothing of it is anywhere but here
    RemoveItem(riga);
    return true;
  }
  const auto [elenco, righe] = std::pair(svuotamenti_, Rows());
  if (BeforeDelete && !BeforeDelete(riga)) return false;
  if (svuotamenti_ != elenco || Rows() != righe)
    return false;  // another list by now: it isn't the row that was meant
  RemoveItem(riga);
  if (AfterDelete) AfterDelete(riga);
  return true;
}

void SSOleDBGrid::utente_seleziona(std::vector<int> righe) {
  std::ranges::sort(righe);
  selezionate_ = std::move(righe);
}

void SSOleDBGrid::utente_allarga(int colonna, int larghezza) {
  if (colonna >= 0 && colonna < Cols()) colonne_[static_cast<size_t>(colonna)].Width = larghezza;
}

bool SSOleDBGrid::raggiungibile(int colonna) const {
  const Colonna& c = Columns(colonna);
  const auto aperta = [](const Colonna& k) { return k.Visible && !k.bloccata; };
  return AllowUpdate() && std::ranges::any_of(colonne_, aperta) ? aperta(c) : c.Visible;
}

std::optional<Cella> SSOleDBGrid::cella_dopo(Cella da) const {
  if (da.riga < 0) da = {-1, Cols()};
  for (int i = da.colonna + 1; i < Cols(); ++i)
    if (raggiungibile(i)) return Cella{da.riga, i};
  if (da.riga + 1 >= Rows()) return {};
  for (int i = 0; i < Cols(); ++i)
    if (raggiungibile(i)) return Cella{da.riga + 1, i};
  return {};
}

std::optional<Cella> SSOleDBGrid::cella_prima(Cella da) const {
  for (int i = da.colonna - 1; i >= 0; --i)
    if (raggiungibile(i)) return Cella{da.riga, i};
  if (da.riga < 1) return {};
  for (int i = Cols() - 1; i >= 0; --i)
    if (raggiungibile(i)) return Cella{da.riga - 1, i};
  return {};
}

bool SSOleDBGrid::vai(std::optional<Cella> dove) {
  if (dove && valida(dove->riga, dove->colonna)) muovi(dove->riga, dove->colonna);
  return dove.has_value();
}

bool SSOleDBGrid::utente_avanti() {
  conferma();
  if (const auto dopo = cella_dopo({riga_, col_})) return vai(dopo);
  if (nuova_ >= 0 && nuova_ == riga_) return false;  // one empty row at the end is enough
  return Enabled() && AllowAddNew() && aggiungi_riga() >= 0;
}

bool SSOleDBGrid::utente_indietro() {
  conferma();
  return vai(cella_prima({riga_, col_}));
}

}  // namespace lokera
