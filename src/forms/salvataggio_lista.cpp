#include "forms/salvataggio_lista.h"

#include <cmath>
#include <optional>

#include "forms/formato.h"
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

SalvataggioLista::SalvataggioLista(griglia& lista) : lista_(lista), grd_(lista.grd()) {}

void SalvataggioLista::annota(const Errore& errore) {
  if (!errore_.fallito()) errore_ = errore;
}

void SalvataggioLista::salva_cella(Recordset& rs, int riga, int colonna, int indice) {
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
QVariant SalvataggioLista::data_letta(const QString& testo) {
  const auto nota = date_lette_.constFind(testo);
  return nota != date_lette_.cend() ? *nota : *date_lette_.insert(testo, data(testo));
}

std::vector<int> SalvataggioLista::indici(const Recordset& rs) const {
  std::vector<int> campi;
  for (int i = 0; i < grd_.Cols(); ++i) {
    const QString& nome = grd_.Columns(i).campo;
    campi.push_back(nome.isEmpty() ? -1 : rs.indice(nome));
  }
  return campi;
}

void SalvataggioLista::salva_record(Recordset& rs, int riga) {
  salva_celle(rs, riga, indici(rs));
}

void SalvataggioLista::salva_celle(Recordset& rs, int riga, const std::vector<int>& indici) {
  for (size_t i = 0; i < indici.size(); ++i)
    if (indici[i] >= 0) salva_cella(rs, riga, static_cast<int>(i), indici[i]);
  pulisci_valori(rs);
}

bool SalvataggioLista::salva_riga(Recordset& rs, int riga, const std::vector<int>& indici,
                                  const QStringList& valori, const Completa& completa) {
  if (rs.AddNew().fallito()) return true;  // the row is dropped
  for (qsizetype i = 0; i + 1 < valori.size(); i += 2) {
    const int campo = rs.indice(valori[i]);
    if (campo >= 0) annota(rs.imposta(valori[i], valore(valori[i + 1], rs.campo(campo).tipo)));
  }
  salva_celle(rs, riga, indici);
  if (completa) completa(rs, riga);
  // A cell that the record didn't take must not be stored as something else.
  if (!errore_.fallito()) errore_ = rs.Update();
  if (!errore_.fallito()) return true;
  rs.CancelUpdate();
  return false;
}

bool SalvataggioLista::scrivi_tutto(Recordset& rs, const QString& valori, const Completa& completa) {
  grd_.Update();
  grd_.Row(0);
  const QStringList coppie = valori.isEmpty() ? QStringList() : valori.split(u'\t');
  const std::vector<int> campi = indici(rs);
  for (int riga = 0; riga < grd_.Rows() && riga_rifiutata_ < 0; ++riga)
    if (!salva_riga(rs, riga, campi, coppie, completa)) riga_rifiutata_ = riga;
  rs.Close();
  lista_.errore_salvataggio_ = riga_rifiutata_ >= 0;
  return riga_rifiutata_ < 0;
}

void SalvataggioLista::annulla(const Errore& errore) {
  errore_ = errore;
  lista_.errore_salvataggio_ = true;
}

void SalvataggioLista::mostra_errore() {
  if (!errore_.fallito()) return;
  grd_.Row(riga_rifiutata_);
  ServiziGriglia& servizi = lista_.servizi_;
  Traduttore& t = servizi.traduttore;
  const QString testo = t.traduci(u"Errore "_s) + QString::number(errore_.numero) +
                        t.traduci(u" durante la registrazione."_s) + u'\r' + errore_.descrizione;
  servizi.messaggi.mostra(testo, t.traduci(u"Errore"_s));
}

namespace {

Errore riscrivi(Connection& conn, const TabellaDaLista& tabella, SalvataggioLista& salvataggio) {
  if (tabella.prima) {
    if (Errore e = tabella.prima(); e.fallito()) return e;
  }
  if (Errore e = conn.Execute(tabella.cancella); e.fallito()) return e;
  Recordset rs;
  if (Errore e = rs.Open(tabella.apri, conn, {}, Cursore::aggiornabile); e.fallito()) return e;
  if (!salvataggio.scrivi_tutto(rs, {}, tabella.completa) || !tabella.dopo) return salvataggio.errore();
  return tabella.dopo();
}

}  // namespace

bool sostituisci_tabelle(Connection& conn, const std::vector<TabellaDaLista>& tabelle) {
  if (tabelle.empty()) return true;
  // Handlers of an edit may take their time, so it is over before the transaction begins.
  for (const TabellaDaLista& t : tabelle) t.lista.grd().Update();
  std::optional<SalvataggioLista> salvataggio(tabelle.front().lista);
  const Errore errore = in_transazione(conn, [&]() -> Errore {
    for (const TabellaDaLista& t : tabelle) {
      salvataggio.emplace(t.lista);
      if (Errore e = riscrivi(conn, t, *salvataggio); e.fallito()) return e;
    }
    return {};
  });
  if (!errore.fallito()) return true;
  salvataggio->annulla(errore);
  salvataggio->mostra_errore();
  return false;
}

}  // namespace lokera
