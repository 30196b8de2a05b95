#include "commissioning/lista_lokere.h"

#include "forms/celle_nominate.h"
#include "store/recordset.h"

namespace lokera {

using namespace Qt::StringLiterals;

namespace {
constexpr const char16_t* colonne[] = {u"id",          u"descrizione", u"status", u"ip_lokera",
                                       u"gateway",     u"subnet mask", u"porta",  u"seriale",
                                       u"orario int.", u"orario PC"};
}

ListaLokere::ListaLokere(Finestra& finestra) : grdLok(finestra, u"grdLok"_s) {
  grdLok.Caption = u"Lokere"_s;
  completa_colonne();
}

void ListaLokere::completa_colonne() {
  lokera::completa_colonne(grdLok, colonne, grdLok.Cols() == 0);
}

Errore ListaLokere::carica_lista_lokere(Connection& archivio) {
  svuota();
  Recordset rs;
  Errore e = rs.Open(u"SELECT * FROM PARAMETRI ORDER BY ID"_s, archivio);
  while (!e.fallito() && !rs.eof()) {
    aggiungi(rs.testo(u"id"), rs.testo(u"descrizione"), rs.testo(u"ip_lokera"));
    e = rs.MoveNext();
  }
  return e;
}

void ListaLokere::svuota() {
  grdLok.RemoveAll();
  libere_.clear();
  quante_.clear();
}

void ListaLokere::aggiungi(const QString& id, const QString& descrizione, const QString& indirizzo) {
  aggiungi_riga(
      grdLok,
      {{u"id", id}, {u"descrizione", descrizione}, {u"status", u"off line"_s}, {u"ip_lokera", indirizzo}});
  libere_[indirizzo] += grdLok.Rows() - 1;
  ++quante_[indirizzo];
}

void ListaLokere::risponde(const ReteLokera& rete) {
  if (libere_[rete.indirizzo].isEmpty()) aggiungi({}, {}, rete.indirizzo);
  const int riga = libere_[rete.indirizzo].takeFirst();
  grdLok.imposta_cella(riga, u"gateway", rete.gateway);
  grdLok.imposta_cella(riga, u"subnet mask", rete.maschera);
  grdLok.imposta_cella(riga, u"porta", rete.porta);
  grdLok.imposta_cella(riga, u"status", u"on line"_s);
}

bool ListaLokere::in_linea(int riga) const {
  return grdLok.cella(riga, u"status") == u"on line"_s;
}

bool ListaLokere::ha_gemella(int riga) const {
  return quante_.value(grdLok.cella(riga, u"ip_lokera")) > 1;
}

void ListaLokere::aggiungi_nuova() {
  aggiungi_riga(grdLok, {{u"status", u"off line"_s}});
  grdLok.Row(grdLok.Rows() - 1);
}

void ListaLokere::imposta_cella(QStringView campo, const QString& testo) {
  grdLok.imposta_cella(grdLok.Row(), campo, testo);
}

}  // namespace lokera
