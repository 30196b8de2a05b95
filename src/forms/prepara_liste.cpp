#include "forms/prepara_liste.h"

namespace lokera {

void prepara_liste(Finestra& finestra, ServiziGriglia& servizi, Connection& conn, const QString& titolo,
                   std::initializer_list<ListaDiFinestra> liste) {
  finestra.Caption(servizi.traduttore.traduci(titolo));
  for (const ListaDiFinestra& l : liste) {
    SSOleDBGrid& grd = l.lista.grd();
    l.lista.layout(conn, finestra.nome(), grd.nome(), conn, l.sql_modello, grd.Width());
  }
  servizi.traduttore.traduci_form(finestra);
}

void apri_a_modifiche(std::initializer_list<SSOleDBGrid*> liste) {
  for (SSOleDBGrid* g : liste) g->AllowAddNew = g->AllowDelete = g->AllowUpdate = true;
}

}  // namespace lokera
