// Saving a list back.
#include <cmath>

#include "forms/formato.h"
#include "forms/griglia.h"
#include "forms/zan_form.h"

namespace lokera {

using namespace Qt::StringLiterals;

namespace {

const QString& vero() {
  static const QString testo = u"Vero"_s;
  return testo;
}

QVariant numero(double n) {
  const bool intero = n == std::floor(n) && std::abs(n) < 1e15;
  return intero ? QVariant(static_cast<qlonglong>(n)) : QVariant(n);
}

/// A text that is no date goes to the store as it is, to be refused there.
QVariant data(const QString& testo) {
  if (testo.trimmed().isEmpty()) return {};
  const QDateTime letta = leggi_data_digitata(testo);
  return letta.isValid() ? QVariant(letta) : QVariant(testo);
}

QVariant valore(const QString& testo, TipoCampo tipo) {
  if (tipo == TipoCampo::data) return data(testo);
  if (tipo == TipoCampo::booleano) return testo == testo_spuntato || testo == vero();
  if (e_numero(tipo)) return numero(leggi_numero(testo).value_or(0));
  return testo.isEmpty() ? u" "_s : testo;
}

}  // namespace

void griglia::annota(const Errore& errore) {
  if (!errore_.fallito()) errore_ = errore;
}

void griglia::salva_cella(Recordset& rs, int riga, int colonna, int indice) {
  const QString testo = grd_.cella(riga, colonna);
  if (grd_.Columns(colonna).stile == StileCella::spunta)
    return annota(rs.imposta(indice, testo == testo_spuntato));
  const TipoCampo tipo = rs.campo(indice).tipo;
  if (tipo == TipoCampo::data) return annota(rs.imposta(indice, data_letta(testo)));
  if (!e_numero(tipo)) return annota(rs.imposta(indice, valore(testo, tipo)));
  const auto letto = leggi_numero(testo);
  if (!letto) grd_.imposta_cella(riga, colonna, u"0"_s);
  annota(rs.imposta(indice, numero(letto.value_or(0))));
}

// The same hours come again and again in one list.
QVariant griglia::data_letta(const QString& testo) {
  const auto nota = date_lette_.constFind(testo);
  return nota != date_lette_.cend() ? *nota : *date_lette_.insert(testo, data(testo));
}

std::vector<int> griglia::indici(const Recordset& rs) const {
  std::vector<int> campi;
  for (int i = 0; i < grd_.Cols(); ++i) {
    const QString& nome = grd_.Columns(i).campo;
    campi.push_back(nome.isEmpty() ? -1 : rs.indice(nome));
  }
  return campi;
}

void griglia::salva_record(Recordset& rs, int riga) {
  salva_record(rs, riga, indici(rs));
}

void griglia::salva_record(Recordset& rs, int riga, const std::vector<int>& indici) {
  for (size_t i = 0; i < indici.size(); ++i)
    if (indici[i] >= 0) salva_cella(rs, riga, static_cast<int>(i), indici[i]);
  pulisci_valori(rs);
}

bool griglia::salva_riga(Recordset& rs, int riga, const std::vector<int>& indici, const QStringList& valori,
                         const Completa& completa) {
  if (rs.AddNew().fallito()) return true;  // the row is dropped
  for (qsizetype i = 0; i + 1 < valori.size(); i += 2) {
    const int campo = rs.indice(valori[i]);
    if (campo >= 0) annota(rs.imposta(valori[i], valore(valori[i + 1], rs.campo(campo).tipo)));
  }
  salva_record(rs, riga, indici);
  if (completa) completa(rs, riga);
  // A cell that the record didn't take must not be stored as something else.
  if (!errore_.fallito()) errore_ = rs.Update();
  if (!errore_.fallito()) return true;
  rs.CancelUpdate();
  return false;
}

bool griglia::scrivi_tutto(Recordset& rs, const QString& valori, const Completa& completa) {
  errore_ = {};
  riga_rifiutata_ = -1;
  grd_.Update();
  grd_.Row(0);
  const QStringList coppie = valori.isEmpty() ? QStringList() : valori.split(u'\t');
  const std::vector<int> campi = indici(rs);
  for (int riga = 0; riga < grd_.Rows() && riga_rifiutata_ < 0; ++riga)
    if (!salva_riga(rs, riga, campi, coppie, completa)) riga_rifiutata_ = riga;
  rs.Close();
  date_lette_.clear();
  errore_salvataggio_ = riga_rifiutata_ >= 0;
  return !errore_salvataggio_;
}

void griglia::mostra_errore() {
  if (!errore_.fallito()) return;
  grd_.Row(riga_rifiutata_);
  Traduttore& t = servizi_.traduttore;
  const QString testo = t.traduci(u"Errore "_s) + QString::number(errore_.numero) +
                        t.traduci(u" durante la registrazione."_s) + u'\r' + errore_.descrizione;
  servizi_.messaggi.mostra(testo, t.traduci(u"Errore"_s));
}

void griglia::salva_tutto(Recordset& rs, const QString& valori) {
  if (!scrivi_tutto(rs, valori)) mostra_errore();
}

Errore griglia::riscrivi(Connection& conn, const TabellaDaLista& tabella) {
  riga_rifiutata_ = -1;
  if (tabella.prima) {
    if (Errore e = tabella.prima(); e.fallito()) return e;
  }
  if (Errore e = conn.Execute(tabella.cancella); e.fallito()) return e;
  Recordset rs;
  if (Errore e = rs.Open(tabella.apri, conn, {}, Cursore::aggiornabile); e.fallito()) return e;
  if (!scrivi_tutto(rs, {}, tabella.completa) || !tabella.dopo) return errore_;
  return tabella.dopo();
}

bool sostituisci_tabelle(Connection& conn, const std::vector<TabellaDaLista>& tabelle) {
  if (tabelle.empty()) return true;
  // Handlers of an edit may take their time, so it is over before the transaction begins.
  for (const TabellaDaLista& t : tabelle) t.lista.grd().Update();
  griglia* lista = &tabelle.front().lista;
  const Errore errore = in_transazione(conn, [&]() -> Errore {
    for (const TabellaDaLista& t : tabelle) {
      lista = &t.lista;
      if (Errore e = lista->riscrivi(conn, t); e.fallito()) return e;
    }
    return {};
  });
  if (!errore.fallito()) return true;
  lista->errore_ = errore;
  lista->errore_salvataggio_ = true;
  lista->mostra_errore();
  return false;
}

}  // namespace lokera
