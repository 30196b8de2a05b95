#pragma once

#include "forms/lavoro.h"
#include "reports/archivio_stampe.h"
#include "reports/report_grafico.h"
#include "reports/servizi_stampa.h"
#include "reports/testata_report.h"

namespace lokera {

/// One report of a list: printed, shown beforehand, or exported, as its settings say. What goes wrong is told
/// in a box, and leaves no file half written.
class LavoroReport {
 public:
  LavoroReport(const ServiziStampa& servizi, SSOleDBGrid& griglia, ContestoStampa contesto, Lavoro& lavoro);

  /// Runs the loop. True when it was done; false when it failed or the person gave it up.
  bool esegui(const ImpostazioniStampa& impostazioni, const ScelteReport& scelte);
  /// The drawn pages on the screen; the printer stays as it was.
  void anteprima(const ImpostazioniStampa& impostazioni, const ScelteReport& scelte);

 private:
  bool stampa_griglia(const ImpostazioniStampa& impostazioni, const ScelteReport& scelte);
  EsitoStampa stampa_pagine(ReportGrafico& report);
  bool ci_sta(const ReportGrafico& report);
  bool stampa_testo(const ScelteReport& scelte);
  bool esporta(const ScelteReport& scelte);
  bool su_file_testo();
  bool su_foglio();

  void imposta(const ImpostazioniStampa& impostazioni);
  TestataReport testata(const ScelteReport& scelte);
  std::optional<int> righe_per_pagina();
  QString in_documenti(const QString& nome) const;
  void non_scritto(const QString& file, const QString& errore);
  void creato(const QString& testo, const QString& file);
  void apri(const QString& file);
  QString traduci(const QString& testo) const { return servizi_.griglie.traduttore.traduci(testo); }

  const ServiziStampa& servizi_;
  SSOleDBGrid& griglia_;
  const ContestoStampa contesto_;
  Lavoro& lavoro_;
  ArchivioStampe archivio_;
};

}  // namespace lokera
