#pragma once

#include "forms/didascalie.h"
#include "forms/tendina.h"
#include "reports/lavoro_report.h"

namespace lokera {

/// How a list is to be printed, and the printing itself: the settings of the report as its user left them
/// last time, the choice of where it goes, how far it has come. It closes once the report is done; one that
/// failed or was given up leaves it open for another try.
class frmPrint : public Finestra {
 public:
  /// The list's window stays open for as long as this lives.
  frmPrint(const ServiziStampa& servizi, SSOleDBGrid& griglia, const QString& nome_stampa);

  void Form_Load() override;
  void attesa_cambiata() override { abilita(); }

  void Command3_Click();  ///< "imposta pagina"
  void Command4_Click();  ///< "conferma"
  void Command5_Click();  ///< "annulla"
  void Command6_Click();  ///< "anteprima"
  void abilita();

  ComboBox cmbStampanti, cmbAlimentatore, cmbFormato;
  TextBox txtLarghezza, txtAltezza;  ///< centimetres
  OptionButton optVerticale, optOrizzontale;
  TextBox txtMargineSx;  ///< centimetres
  ComboBox cmbFont;
  TextBox txtDimensione;
  ComboBox cmbQualità;
  CheckBox chkFacilitata;
  CheckBox chkTesto, chkExcel, chkCarattere;  ///< where the report goes
  CheckBox chkDitta, chkData;                 ///< what stands at the head of a page
  Lavoro lavoro;
  CommandButton Command3, Command6, Command4, Command5;

 private:
  void collega_eventi();
  void riempi_elenchi();
  void mostra(const ImpostazioniStampa& impostazioni);
  void mostra(const ScelteReport& scelte);
  void mostra_formato(int formato);
  ImpostazioniStampa impostazioni() const;
  ScelteReport scelte() const;
  void segnala(const Errore& e) { servizi_.griglie.messaggi.mostra(e.descrizione); }
  QString traduci(const QString& testo) const { return servizi_.griglie.traduttore.traduci(testo); }

  const ServiziStampa& servizi_;
  const Attesa tiene_aperta_;  ///< the list's window
  const ContestoStampa contesto_;
  Didascalie didascalie_;
  ArchivioStampe archivio_;
  LavoroReport report_;
};

/// Opens it for a list that has rows; both lists of keys and movements print under the same name.
void stampa_elenco(const ServiziStampa& servizi, SSOleDBGrid& griglia);

}  // namespace lokera
