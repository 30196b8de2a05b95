// Columns and filling of a list.
#include "forms/griglia.h"

#include <algorithm>

#include "forms/formato.h"
#include "forms/lettura_a_tratti.h"
#include "forms/salvataggio_lista.h"

namespace lokera {

using namespace Qt::StringLiterals;

namespace {

constexpr int righe_per_ridisegno = 100;
constexpr Monotonic tempo_senza_cedere = std::chrono::milliseconds(20);
/// A stretch lasts so many times as long as its query took to open, so that opening it again costs little.
constexpr int tratto_per_apertura = 4;

void tipo_dato(Colonna& c, const QString& tipo) {
  if (tipo == u"numero"_s) c.allineamento = Allineamento::destra;
  if (tipo == u"data"_s) c.allineamento = Allineamento::centro;
  if (tipo == u"check"_s) {
    c.allineamento = Allineamento::centro;
    c.stile = StileCella::spunta;
  }
}

Colonna colonna_da_riga(const Recordset& rs) {
  Colonna c;
  c.Caption = rs.testo(u"titolo_colonna").trimmed();
  c.campo = rs.testo(u"campo").trimmed();
  c.Width = static_cast<int>(rs.numero(u"larghezza"));
  c.Visible = rs.valore(u"visibile").toDouble() != 0;
  c.formato = rs.testo(u"formato_numerico").trimmed();
  c.caratteri = static_cast<int>(rs.numero(u"caratteri"));
  tipo_dato(c, rs.testo(u"tipo_dato").trimmed().toLower());
  return c;
}

void colonna_da_campo(Colonna& c, const Campo& campo) {
  const auto numero = [&](int larghezza) {
    c.Width = larghezza;
    c.allineamento = Allineamento::destra;
  };
  c.Caption = c.campo = campo.nome;
  switch (campo.tipo) {
    case TipoCampo::intero_breve:
      return numero(700);
    case TipoCampo::intero:
      return numero(800);
    case TipoCampo::doppio:
    case TipoCampo::numerico:
      return numero(1700);
    case TipoCampo::data:
      c.Width = 1100;
      c.allineamento = Allineamento::centro;
      return;
    case TipoCampo::booleano:
      c.Width = 800;
      c.allineamento = Allineamento::centro;
      c.stile = StileCella::spunta;
      return;
    case TipoCampo::testo_stretto:
    case TipoCampo::testo:
      c.Width = campo.dimensione * 100 + 200;
      c.allineamento = Allineamento::sinistra;
      c.caratteri = campo.dimensione;
      return;
    case TipoCampo::memo:
      return;
  }
}

/// Where a column's cells come from, worked out once for all rows.
struct Fonte {
  int indice = -1;
  TipoCampo tipo = TipoCampo::testo;
  bool spunta = false;
  QByteArray formato;
};

std::vector<Fonte> fonti(const SSOleDBGrid& grd, const Recordset& rs) {
  std::vector<Fonte> tutte;
  for (int i = 0; i < grd.Cols(); ++i) {
    const Colonna& c = grd.Columns(i);
    const int indice = c.campo.isEmpty() ? -1 : rs.indice(c.campo);
    const TipoCampo tipo = indice < 0 ? TipoCampo::testo : rs.campo(indice).tipo;
    tutte.push_back({indice, tipo, c.stile == StileCella::spunta, c.formato.toUtf8()});
  }
  return tutte;
}

void aggiungi_cella(QByteArray& a, const Recordset& rs, const Fonte& f) {
  if (f.indice < 0) return;
  const QByteArrayView grezzo = rs.testo_grezzo(f.indice);
  if (f.spunta)
    a += (grezzo.toDouble() != 0 ? testo_spuntato : testo_non_spuntato).toUtf8();
  else
    formatta(a, grezzo, f.tipo, f.formato);
}

void scrivi_riga(QByteArray& a, const Recordset& rs, const std::vector<Fonte>& fonti) {
  a.resize(0);
  for (const Fonte& f : fonti) {
    aggiungi_cella(a, rs, f);
    a += '\t';
  }
  a.chop(1);
}

Errore riempi_blocco(SSOleDBGrid& grd, LetturaATratti& lettura, const std::vector<Fonte>& fonti) {
  Recordset& rs = lettura.righe();
  const int prima = grd.Rows();
  QByteArray riga;
  Errore errore;
  grd.Redraw(false);
  for (int i = 1; i <= righe_per_ridisegno && !rs.eof() && !errore.fallito(); ++i) {
    scrivi_riga(riga, rs, fonti);
    grd.AddItem(QByteArrayView(riga));
    if (i == righe_per_ridisegno) lettura.annota();
    errore = rs.MoveNext();
  }
  grd.Redraw(true);
  grd.ReDraw(prima);
  return errore;
}

}  // namespace

griglia::griglia(SSOleDBGrid& grd, ServiziGriglia& servizi) : grd_(grd), servizi_(servizi) {}

void griglia::defaults(Colore colore1, Colore colore2) {
  this->colore1 = colore1;
  this->colore2 = colore2;
  grd_.BackColorEven = colore1;
  grd_.BackColorOdd = colore2;
}

void griglia::layout(Connection& conn_layout, const QString& nome_form, const QString& nome_griglia,
                     Connection& conn_dati, const QString& sql_modello, int larghezza_griglia) {
  defaults();
  if (!nome_form.isEmpty() && colonne_da_tabella(conn_layout, nome_form, nome_griglia)) return;
  colonne_da_modello(conn_dati, sql_modello);
  adatta(larghezza_griglia);
}

bool griglia::colonne_da_tabella(Connection& conn, const QString& nome_form, const QString& nome_griglia) {
  const QString sql =
      u"select * from layout_griglie where programma = 'Zandor' and nome_form = ? and nome_griglia = ? "
      "order by nr_colonna"_s;
  Recordset rs;
  if (rs.Open(sql, conn, {nome_form, nome_griglia}).fallito()) return false;
  std::vector<Colonna> colonne;
  while (!rs.eof()) {
    colonne.push_back(colonna_da_riga(rs));
    if (rs.MoveNext().fallito()) return false;
  }
  if (colonne.empty()) return false;
  imposta_colonne(std::move(colonne));
  return true;
}

void griglia::colonne_da_modello(Connection& conn, const QString& sql) {
  Recordset rs;
  if (rs.Open(sql, conn).fallito()) return;
  std::vector<Colonna> colonne;
  for (int i = 0; i < std::max(grd_.Cols(), rs.conta_campi()); ++i) {
    Colonna& c = colonne.emplace_back(i < grd_.Cols() ? grd_.Columns(i) : Colonna());
    if (i < rs.conta_campi()) colonna_da_campo(c, rs.campo(i));
  }
  imposta_colonne(std::move(colonne));
}

void griglia::imposta_colonne(std::vector<Colonna> colonne) {
  for (Colonna& c : colonne)
    if (riservati_.contains(c.campo, Qt::CaseInsensitive)) c.Visible = false;
  grd_.imposta_colonne(std::move(colonne));
}

/// Widens the visible columns in proportion until they fill the list beside its scroll bar, to the unit.
void griglia::adatta(int larghezza_griglia) {
  const int spazio = larghezza_griglia - 400 * servizi_.larghezza_schermo / 640;
  std::vector<Colonna> colonne;
  qint64 totale = 0;
  for (int i = 0; i < grd_.Cols(); ++i) {
    colonne.push_back(grd_.Columns(i));
    if (colonne.back().Visible) totale += colonne.back().Width;
  }
  if (totale == 0 || totale >= spazio) return;
  qint64 prima = 0;
  for (Colonna& c : colonne) {
    if (!c.Visible) continue;
    const qint64 dopo = prima + c.Width;
    c.Width = static_cast<int>(dopo * spazio / totale - prima * spazio / totale);
    prima = dopo;
  }
  grd_.imposta_colonne(std::move(colonne));
}

bool griglia::popola(Connection& conn, const QString& sql, const QVariantList& valori) {
  const Finestra::Attesa attesa(grd_.finestra());
  grd_.RemoveAll();
  const quint64 mio = grd_.svuotamenti();
  LetturaATratti lettura(conn, sql, valori);
  if (!riempi(lettura)) return false;
  if (grd_.Row() < 0) grd_.Row(0);
  return grd_.svuotamenti() == mio;
}

/// False when an error ended it or another filling of the list took its place.
bool griglia::riempi(LetturaATratti& lettura) {
  const quint64 mio = grd_.svuotamenti();
  for (;;) {
    if (const Errore e = riempi_tratto(lettura); e.fallito()) return popolamento_fallito(e);
    if (!lettura.sospesa()) return true;
    servizi_.attesa.cedi();
    if (grd_.svuotamenti() != mio) return false;
  }
}

Errore griglia::riempi_tratto(LetturaATratti& lettura) {
  const Clock& orologio = servizi_.attesa.orologio();
  const Monotonic inizio = orologio.monotono();
  if (Errore e = lettura.apri(); e.fallito()) return e;
  const Monotonic aperta = orologio.monotono();
  const Monotonic fine = aperta + std::max(tempo_senza_cedere, (aperta - inizio) * tratto_per_apertura);
  const std::vector<Fonte> colonne = fonti(grd_, lettura.righe());
  while (!lettura.righe().eof()) {
    if (Errore e = riempi_blocco(grd_, lettura, colonne); e.fallito()) return e;
    if (orologio.monotono() > fine && lettura.sospendi()) break;
  }
  return {};
}

void griglia::salva_record(Recordset& rs, int riga) {
  SalvataggioLista(*this).salva_record(rs, riga);
}

void griglia::salva_tutto(Recordset& rs, const QString& valori) {
  SalvataggioLista salvataggio(*this);
  if (!salvataggio.scrivi_tutto(rs, valori)) salvataggio.mostra_errore();
}

bool griglia::popolamento_fallito(const Errore& errore) {
  grd_.RemoveAll();
  servizi_.messaggi.mostra(errore.descrizione);
  return false;
}

}  // namespace lokera
