#pragma once

#include <optional>

#include "cards/archivio_chiavi.h"
#include "cards/invio_tessere.h"
#include "cards/servizi_tessere.h"
#include "forms/didascalie.h"
#include "forms/lavoro.h"
#include "forms/ricerca_in_lista.h"
#include "forms/ss_ole_db_combo.h"
#include "link/sessione_tenuta.h"
#include "platform/pointer.h"

namespace lokera {

/// The keys of one cabinet: which tag hangs in which position, under which name and in which group. A key
/// goes into the database and, over the session, into the cabinet; the cards that may take keys of its group
/// are queued. While the window is open the visits stand still, and the time bands with them.
class frm_tessere : public Finestra {
 public:
  frm_tessere(ElencoFinestre& elenco, const ServiziTessere& servizi, LokeraCorrente& corrente,
              InvioTessere& invio, Pointer& puntatore);

  void Form_Load() override;
  bool Form_Unload() override;
  void attesa_cambiata() override { abilita(); }

  void comboLKR_CloseUp(int voce);
  void grd_RowColChange();
  void txtCodice_LostFocus();
  void Command1_Click();   ///< "registra"
  void Command2_Click();   ///< "annulla mod."
  void Command3_Click();   ///< "nuovo"
  void Command4_Click();   ///< "modifica"
  void Command5_Click();   ///< "elimina"
  void Command7_Click();   ///< "Aggiornamento totale chiavi  Lokera"
  void Command8_Click();   ///< "nuova posizione"
  void Command10_Click();  ///< "ctrl": how many keys the cabinet holds
  /// Rebuilds the list and stands on its first row.
  void elenca_tessere();

  /// Another cabinet is the current one; handed down by the owner.
  std::function<void()> lokera_scelta;

  /// From "nuovo" until the key is registered or given up: the fields describe one that the table doesn't
  /// hold.
  bool nuovo_record = false;
  /// False during the full update, which leaves the table alone and tells only of its end.
  bool interattivo = false;

 private:
  ServiziTessere servizi_;

 public:
  SSOleDBCombo comboLKR;
  Label lblLokera, lblIndirizzoIP;
  OptionButton optOrdPos, optOrdNome;
  SSOleDBGrid grd;
  RicercaInLista ricerca;
  Label lblRecords_LOK, lblRecords_DB;
  CommandButton Command10;
  Lavoro lavoro;  ///< the full update
  TextBox txtCodice, txtCodiceVer, Text1;
  SSOleDBCombo comboG;
  TextBox Text2;
  CommandButton Command8;
  CommandButton Command3, Command4, Command1, Command2, Command5, Command7;
  LettoreTavolo lettore;
  Label lblNota;        ///< what is to be known of the position
  Label lblTrattenute;  ///< how many cards wait for a key of this cabinet

 private:
  void collega_eventi();
  void abilita();
  void riempi_elenchi();
  void cambiAttivazione(bool modifica);
  void campi_da_riga();
  void leggi_titolari();
  void mostra_note();
  void conta_trattenute();
  bool scelta_una_lokera();

  qlonglong lokera() const { return comboLKR.Text().trimmed().toLongLong(); }
  RigaChiave dai_campi() const;
  QString in_tabella() const;
  static std::optional<int> leggi_posizione(const QString& testo);
  bool campi_validi();
  bool doppia(const QString& codice, const QString& chiave);
  void controlla_doppia();
  bool posizione_presa(const RigaChiave& chiave, const QString& identita);
  bool registra();
  bool registra_chiave(const QString& identita, const RigaChiave& chiave);
  void aggiorna_tutte();

  void mostra_errore(const Errore& e) { servizi_.griglie.messaggi.mostra(e.descrizione); }
  void avvisa(const QString& testo, const QString& titolo = {}, Icona icona = Icona::nessuna);
  QString traduci(const QString& testo) { return servizi_.griglie.traduttore.traduci(testo); }

  LokeraCorrente& corrente_;
  InvioTessere& invio_;
  Pointer& puntatore_;
  ArchivioChiavi archivio_;
  CodaTessere coda_;
  Didascalie didascalie_;
  griglia griglia_;
  std::optional<SessioneTenuta> tenuta_;
  QHash<QString, QString> titolari_;  ///< who has keys of this list out, by card
  QString sospesa_;  ///< the key that is being edited, when the table has it and the cabinet perhaps not
  bool in_modifica_ = false;
  bool collegata_ = false;  ///< the session to the chosen cabinet stood when it was chosen
  bool elimina_ = false;    ///< "elimina" serves: behind "modifica" only
};

}  // namespace lokera
