#pragma once

#include "commissioning/avanzamento_ricerca.h"
#include "commissioning/linea_lokera.h"
#include "commissioning/lista_lokere.h"
#include "commissioning/pannello_parametri.h"
#include "forms/didascalie.h"
#include "forms/griglia.h"

namespace lokera {

/// The cabinets of the installation: found on the network, given their address, registered and told what to
/// work by, counted, cleared, deleted. Either a row is chosen in the list, or the one that was chosen is
/// edited in the panel.
///
/// What is asked to close while it waits for a cabinet closes after it: a search goes no further, any other
/// action is finished.
class frm_param_lokere : public Finestra {
 public:
  frm_param_lokere(ElencoFinestre& elenco, Connection& archivio, ServiziGriglia& servizi,
                   WinsockFactory& socket, TimerFactory& timer);

  void Form_Load() override;
  void attesa_cambiata() override { abilita(); }
  void grdLok_RowColChange();

  void Command4_Click();     ///< "ricerca broadcast"
  void cmdNuova_Click();     ///< "nuova": a cabinet that no broadcast reaches
  void cmdModifica_Click();  ///< "modifica"
  void cmdAnnulla_Click();   ///< "annulla mod.": leaves the editing
  void cmdRegPar_Click();    ///< "registra parametri": row, cabinet, clock
  void Command2_Click();     ///< "imposta parametri di rete": by broadcast
  void Command1_Click();     ///< "elimina"
  void Command10_Click();    ///< "leggi contatori"
  void Command6_Click();     ///< "azzera memoria lokera"
  void Command5_Click();     ///< "reset lokere": all that are on; the button asks first

  /// Opens the line to the cabinet of the fields; shows why when it can't.
  bool connetti_lokera();

  /// The rows of `parametri` have changed; before it, that a cabinet has another number, 0 for one that is no
  /// more. Handed down by the owner.
  std::function<void()> lokere_cambiate;
  std::function<void(qlonglong vecchio, qlonglong nuovo)> lokera_rinumerata;

  ListaLokere lista;
  CommandButton Command4;
  AvanzamentoRicerca avanzamento;
  PannelloParametri pannello;
  CommandButton Command2, cmdNuova, cmdModifica, cmdRegPar, cmdAnnulla, Command1;
  CommandButton Command10;
  Label lblChiaviLok, lblTessereLok;
  CommandButton Command6, Command5;
  SSOleDBGrid grd;  ///< the computers and the COM port of each one's desk reader

 private:
  void collega_eventi();
  void abilita();
  void mostra_rete();
  void fine_modifica();
  void carica_lista();
  void salva_lettore(int riga);
  void chiedi_reset();
  void mostra_errore(const Errore& errore);
  void avvisa(const QString& testo, const QString& titolo = {});
  QString traduci(const QString& testo) { return servizi_.traduttore.traduci(testo); }

  bool cerca_in_rete();
  bool leggi_trovata(int riga);
  void leggi_seriale();
  void leggi_orario();

  Errore numero_valido(qlonglong vecchio, qlonglong& nuovo);
  bool registra_riga(const ParametriLokera& p);
  bool invia_parametri(const ParametriLokera& p);
  bool esito_rete(const Esito<QByteArray>& risposta);
  void memorizza_indirizzo(const QString& indirizzo);

  bool in_linea();
  bool leggi_contatore(QByteArrayView testo, Label& etichetta, const QString& dicitura);
  bool svuota_archivio(QByteArrayView testo, const QString& mancato);

  ArchivioLokere archivio_;
  Connection& connessione_;
  ServiziGriglia& servizi_;
  LineaLokera linea_;
  Didascalie didascalie_;
  griglia griglia_lokere_, griglia_computer_;
  bool in_modifica_ = false;
  bool riga_letta_ = false;  ///< the fields show the row as the database has it
};

}  // namespace lokera
