#pragma once

#include <QString>

#include <optional>

#include "forms/traduttore.h"

namespace lokera {

/// Which report, of whom: the key under which its settings are kept. Absent texts are one blank.
struct ContestoStampa {
  QString nome_stampa;      ///< also the document's name and the report's title
  QString codice = u" "_s;  ///< the user
  QString ditta_in_uso = u" "_s;
  QString documento = u" "_s;  ///< the report's variant
};

/// How a report is printed, as its user left it.
struct ImpostazioniStampa {
  QString stampante;
  QString orientamento = u"Portrait"_s;  ///< or "Landscape"
  int formato = 0;                       ///< paper code; 0 as the printer has it
  double larghezza = 0;                  ///< centimetres, of paper without a code; 0 as the printer has it
  double lunghezza = 0;
  double margineSx = 1;  ///< centimetres
  QString Font = u"Times New Roman"_s;
  double dimensione = 8;      ///< points
  QString qualita = u"-0"_s;  ///< "-0" to "-4"
  bool interpollice = false;  ///< lines further apart
  QString alimentatore = u"1"_s;

  bool operator==(const ImpostazioniStampa&) const = default;
};

/// What a report is made of and where it goes.
struct ScelteReport {
  bool dati_anagrafici = true;      ///< the company at the head of the page
  bool modalita_carattere = false;  ///< a text file for a line printer instead of drawn pages
  bool esporta_testo = false;       ///< to a file or a sheet instead of paper
  bool esporta_excel = false;
  bool stampa_data = true;

  bool operator==(const ScelteReport&) const = default;
};

/// The tables of the reports.
class ArchivioStampe {
 public:
  explicit ArchivioStampe(Connection& connessione) : c_(connessione) {}

  /// The defaults when nothing is kept under that key.
  Esito<ImpostazioniStampa> leggi(const ContestoStampa& contesto);
  Errore registra(const ContestoStampa& contesto, const ImpostazioniStampa& impostazioni);
  /// The left margin in centimetres, unless the row has a column of its own that says there is none.
  Esito<std::optional<double>> margine_sinistro(const ContestoStampa& contesto);

  /// What the installation has chosen for the report; the defaults when it has not.
  Esito<ScelteReport> scelte(const QString& nome_stampa);
  /// The company as lines for the head of a page; none without a row.
  Esito<QStringList> ditta(Traduttore& traduttore);

 private:
  Connection& c_;
};

}  // namespace lokera
