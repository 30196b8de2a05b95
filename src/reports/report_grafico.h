#pragma once

#include "platform/printer.h"
#include "reports/elenco_mostrato.h"
#include "reports/misura_testo.h"
#include "reports/testata_report.h"

namespace lokera {

/// A list as drawn pages, on the printer as it is set: the head, the columns in their widths scaled to the
/// paper, a row to a line, a closing line at the foot. The list and the printer outlive it and stay as they
/// are.
class ReportGrafico {
 public:
  struct Aspetto {
    Carattere carattere;
    bool facilitata = false;  ///< lines further apart
  };

  ReportGrafico(const SSOleDBGrid& grd, const Printer& stampante, TestataReport testata,
                const Aspetto& aspetto);

  /// Whether a page has room for its head and a row.
  bool ci_sta() const { return altezza_testata() + passo_ + sotto_linea <= altezza_; }
  int pagine() const;
  /// Counted from 1.
  PaginaStampa pagina(int numero);
  /// Stands as long as this.
  Documento documento();

 private:
  static constexpr int sotto_linea = 40;

  struct Posto {
    int x, larghezza;
  };

  void disponi_colonne();
  int testata(PaginaStampa& pagina, int numero) const;
  void riga_titolo(PaginaStampa& pagina, int& y, int numero) const;
  int intestazioni(PaginaStampa& pagina, int y) const;
  void riga(PaginaStampa& pagina, int y);
  void cella(PaginaStampa& pagina, int y, size_t colonna);
  int altezza_testata() const;

  ElencoMostrato elenco_;
  const TestataReport testata_;
  const Carattere carattere_, grassetto_, titolo_;
  const MisuraTesto misura_, misura_grassetto_, misura_titolo_;
  const int larghezza_, altezza_;
  const int passo_;  ///< from one row to the next
  int righe_pagina_ = 1;
  std::vector<Posto> posti_;
};

}  // namespace lokera
