#pragma once

#include "cards/archivio_tessere.h"
#include "cards/servizi_tessere.h"
#include "forms/didascalie.h"
#include "forms/lavoro.h"
#include "forms/ricerca_in_lista.h"
#include "forms/ss_ole_db_combo.h"

namespace lokera {

/// The cards of the people who take keys: who holds each, for how long, which groups of keys it may use. It
/// writes the tables and queues the card; the visits, which stand still while the window is open, take it to
/// the cabinets.
class frm_tessere_operatori : public Finestra {
 public:
  frm_tessere_operatori(ElencoFinestre& elenco, const ServiziTessere& servizi);

  void Form_Load() override;
  bool Form_Unload() override;
  void attesa_cambiata() override { abilita(); }

  void grd_RowColChange();
  void txtCodice_LostFocus();
  void Command1_Click();   ///< "registra"
  void Command2_Click();   ///< "annulla mod."
  void Command3_Click();   ///< "nuovo"
  void Command4_Click();   ///< "modifica"
  void Command5_Click();   ///< "elimina"
  void Command7_Click();   ///< "Cancellazione totale tessere  operatori dalla Lokera": no longer done
  void Command8_Click();   ///< "seleziona tutti i gruppi  >>"
  void Command9_Click();   ///< "nuova posizione"
  void Command10_Click();  ///< "ctrl": how many cards the cabinet of the session holds
  void Command11_Click();  ///< "aggiornamento totale Tessere sulle Lokere"
  /// Rebuilds the list and stands on its first row. A card on its way out isn't in it.
  void elenca_operatori();

  bool nuovo_record = false;  ///< from "nuovo" until the card is registered or given up

 private:
  ServiziTessere servizi_;

 public:
  SSOleDBGrid grd, grdGru;
  RicercaInLista ricerca;
  Label lblRecords_LOK, lblRecords_DB;
  CommandButton Command10;
  Lavoro lavoro;  ///< the full update
  TextBox txtCodice, txtCodiceVer, Text1;
  MaskEdBox txtDal, txtAl;
  SSOleDBCombo cmbGru;
  TextBox txtNrMaxPrelievi, Text2;
  CommandButton Command9, Command8;
  CommandButton Command3, Command4, Command1, Command2, Command5, Command7, Command11;
  LettoreTavolo lettore;
  Label lblScadenza;  ///< how long the card is still valid
  Label lblInMano;    ///< the keys that it has out now

 private:
  void collega_eventi();
  void prepara_colonne();
  void riempi_gruppi_utente();
  void abilita();
  void cambiAttivazione(bool modifica);
  void spunta_gruppi(const QList<qlonglong>& gruppi);
  QList<qlonglong> gruppi_spuntati() const;
  void campi_da_riga();
  void mostra_stato();
  bool scaduta(int riga) const;
  QString scadenza(int riga) const;

  struct Errato {
    QString testo, titolo;
  };
  std::optional<Errato> primo_errore() const;
  RigaTessera dai_campi();
  bool campi_validi();
  bool doppia(const QString& codice, const QString& propria);
  bool riga_completa(int riga) const;
  void aggiorna_tutte();

  void mostra_errore(const Errore& e) { servizi_.griglie.messaggi.mostra(e.descrizione); }
  void avvisa(const QString& testo, const QString& titolo = {}, Icona icona = Icona::nessuna);
  QString traduci(const QString& testo) const { return servizi_.griglie.traduttore.traduci(testo); }
  QDate oggi() const { return servizi_.lettore.orologio.adesso().date(); }

  ArchivioTessere archivio_;
  CodaTessere coda_;
  Didascalie didascalie_;
  griglia griglia_, griglia_gruppi_;
  bool in_modifica_ = false;
};

}  // namespace lokera
