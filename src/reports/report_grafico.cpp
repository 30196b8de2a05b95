#include "reports/report_grafico.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace lokera {

namespace {

constexpr int tra_colonne = 60;  // twips that no text of a column takes
constexpr double ingrandimento_titolo = 1.5;

Carattere come(Carattere c, double volte, bool grassetto) {
  c.dimensione *= volte;
  c.grassetto = grassetto;
  return c;
}

}  // namespace

ReportGrafico::ReportGrafico(const SSOleDBGrid& grd, const Printer& stampante, TestataReport testata,
                             const Aspetto& aspetto)
    : elenco_(grd),
      testata_(std::move(testata)),
      carattere_(aspetto.carattere),
      grassetto_(come(carattere_, 1, true)),
      titolo_(come(carattere_, ingrandimento_titolo, true)),
      misura_(stampante, carattere_),
      misura_grassetto_(stampante, grassetto_),
      misura_titolo_(stampante, titolo_),
      larghezza_(stampante.ScaleWidth()),
      altezza_(stampante.ScaleHeight()),
      passo_(aspetto.facilitata ? misura_.altezza() * 3 / 2 : misura_.altezza()) {
  disponi_colonne();
  righe_pagina_ = std::max(1, (altezza_ - altezza_testata() - sotto_linea) / passo_);
}

// Borders are rounded, not widths, so that the last column ends where the paper does.
void ReportGrafico::disponi_colonne() {
  const auto& colonne = elenco_.colonne();
  const qint64 totale = std::accumulate(colonne.begin(), colonne.end(), qint64{0},
                                        [](qint64 n, const auto& c) { return n + c.larghezza; });
  qint64 prima = 0;
  for (const auto& c : colonne) {
    const qint64 dopo = prima + c.larghezza;
    const int x = static_cast<int>(prima * larghezza_ / std::max(totale, qint64{1}));
    const int fine = static_cast<int>(dopo * larghezza_ / std::max(totale, qint64{1}));
    posti_.push_back({x, std::max(0, fine - x - tra_colonne)});
    prima = dopo;
  }
}

int ReportGrafico::pagine() const {
  return std::max(1, (elenco_.righe() + righe_pagina_ - 1) / righe_pagina_);
}

Documento ReportGrafico::documento() {
  return {testata_.titolo, pagine(), [this](int numero) { return pagina(numero); }};
}

PaginaStampa ReportGrafico::pagina(int numero) {
  PaginaStampa pagina;
  int y = testata(pagina, numero);
  pagina.carattere(carattere_);
  const int prima = (numero - 1) * righe_pagina_;
  for (int i = prima; i < std::min(prima + righe_pagina_, elenco_.righe()); ++i, y += passo_) {
    elenco_.prendi(i);
    riga(pagina, y);
  }
  pagina.linea(0, y, larghezza_, y);
  return pagina;
}

int ReportGrafico::altezza_testata() const {
  PaginaStampa prova;
  return testata(prova, 1);
}

int ReportGrafico::testata(PaginaStampa& pagina, int numero) const {
  int y = 0;
  pagina.carattere(carattere_);
  for (const QString& linea : testata_.ditta) {
    pagina.testo(0, y, misura_.taglia(linea, larghezza_));
    y += misura_.altezza();
  }
  if (!testata_.ditta.isEmpty()) y += misura_.altezza() / 2;
  riga_titolo(pagina, y, numero);
  return intestazioni(pagina, y);
}

void ReportGrafico::riga_titolo(PaginaStampa& pagina, int& y, int numero) const {
  QString accanto = testata_.data.isEmpty() ? QString() : testata_.testo_data + testata_.data;
  accanto = misura_.taglia(accanto + testata_.testo_pagina + QString::number(numero), larghezza_);
  const int a_destra = misura_.larghezza(accanto);
  pagina.carattere(titolo_);
  pagina.testo(0, y, misura_titolo_.taglia(testata_.titolo, larghezza_ - a_destra));
  pagina.carattere(carattere_);
  pagina.testo(std::max(0, larghezza_ - a_destra), y + misura_titolo_.altezza() - misura_.altezza(), accanto);
  y += misura_titolo_.altezza() + sotto_linea;
}

int ReportGrafico::intestazioni(PaginaStampa& pagina, int y) const {
  pagina.linea(0, y, larghezza_, y);
  y += sotto_linea;
  pagina.carattere(grassetto_);
  for (size_t i = 0; i < posti_.size(); ++i) {
    const auto& colonna = elenco_.colonne()[i];
    const QString titolo = misura_grassetto_.taglia(colonna.titolo, posti_[i].larghezza);
    const int libero = colonna.allineamento == Allineamento::destra
                           ? posti_[i].larghezza - misura_grassetto_.larghezza(titolo)
                           : 0;
    pagina.testo(posti_[i].x + std::max(0, libero), y, titolo);
  }
  y += misura_grassetto_.altezza();
  pagina.linea(0, y, larghezza_, y);
  return y + sotto_linea;
}

void ReportGrafico::riga(PaginaStampa& pagina, int y) {
  for (size_t i = 0; i < posti_.size(); ++i) cella(pagina, y, i);
}

void ReportGrafico::cella(PaginaStampa& pagina, int y, size_t i) {
  const auto& colonna = elenco_.colonne()[i];
  QString testo = elenco_.testo(i);
  if (colonna.spunta) testo = testo == testo_spuntato ? u"*"_s : u" "_s;
  if (testo.isEmpty()) return;
  testo = misura_.taglia(testo, posti_[i].larghezza);
  const bool numero = colonna.allineamento == Allineamento::destra;
  const int libero = numero ? std::max(0, posti_[i].larghezza - misura_.larghezza(testo)) : 0;
  pagina.testo(posti_[i].x + libero, y, testo);
}

}  // namespace lokera
