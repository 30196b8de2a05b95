#pragma once

#include <functional>
#include <memory>

#include "access/decisioni.h"
#include "access/fasce.h"
#include "access/giorno.h"
#include "access/pannello_live.h"
#include "cards/invio_tessere.h"
#include "forms/didascalie.h"
#include "forms/griglia.h"
#include "link/sessione_download.h"
#include "link/sessione_slave.h"
#include "platform/machine.h"
#include "supervisor/accesso.h"
#include "supervisor/acquisizione.h"
#include "supervisor/attesa_blocco.h"
#include "supervisor/ciclo_download.h"
#include "supervisor/menu_principale.h"
#include "supervisor/tabellone.h"

namespace lokera {

/// What the main window stands on; all of it outlives the window.
struct AmbientePrincipale {
  Machine macchina;
  Database& db;
  ElencoFinestre& finestre;
  Traduttore& traduttore;
  ServiziGriglia& griglie;
  /// Whether another console runs on this computer with this database already.
  std::function<bool()> istanza_precedente;
};

/// The main window: the whole running system. It stays open from start to exit.
class frm_Main : public Finestra {
 public:
  explicit frm_Main(const AmbientePrincipale& ambiente);

  /// The start, in its order. Runs the loop: another console's lock is waited for, the live session is
  /// connected and the first visit is made inside. When it ends the program (a second instance, a file older
  /// than the program, or one that can't be read) it returns early.
  void Form_Load() override;
  /// The close box does nothing.
  bool Form_Unload() override { return false; }

  /// Reads the cabinets of this computer. On a file older than the program it runs the migration and ends the
  /// program; any other failure is shown, and what was read before stands.
  void trova_lokere_sistema();
  void timerOrario_Timer();
  void mnuScarTrans_Click();

  /// Draws the window on the screen; called in the middle of the start, before the first connection.
  std::function<void()> Show;

  bool modo_slave() const { return pannello.modo_slave; }
  bool cabinet_controllate = false;

 private:
  AmbientePrincipale a_;
  PolledWait& attesa_;
  Scambio scambio_;

 public:
  // The current cabinet, for the whole program.
  Label lblID, lblNome, lblIndirizzoIP;
  Label lblModalità;
  Label lblStatus, lblStatusD, lblPorta, lblPortaD, lblSocket, lblSocketD;
  Label lblLetturaTrans, lblOrarioAgg, lblOrario;
  Label lblErrore;  ///< how many live movements wait, the last failure of the store: for who sits at the desk

 private:
  Didascalie didascalie_;

 public:
  SessioneSlave slave;
  SessioneDownload download;
  Giorno giorno;
  PannelloLive pannello;
  Tabellone tabellone;
  InvioTessere invio;
  CicloDownload ciclo;
  Acquisizione acquisizione;
  Decisioni decisioni;
  FasceOrarie fasce;
  Accesso accesso;  // its menu entry is the first of the bar
  MenuPrincipale menu;
  griglia griglia_lokere, griglia_agg_oper;
  std::unique_ptr<Timer> timerOrario;

 private:
  void collega_parti();
  void segnala(const Errore& errore);
  void segnala_attesa(const Errore& errore, const QDateTime& dal);
  void mostra_errori();
  bool si_puo_finire();
  Errore prepara_archivio();
  void archivio_illeggibile(const Errore& errore);
  AttesaBlocco attesa_blocco();
  Errore leggi_lokere();
  void imposta_prima_lokera(const Recordset& rs);
  Errore elenca_lokere(Recordset& rs);
  Errore registra_release();
  Errore registra_computer();
  QString nome_computer() const { return slave.wsk->LocalHostName(); }
  QString movimenti_in_attesa_, ultimo_errore_;  ///< the two halves of `lblErrore`
  bool gestito_ = false;                         ///< the first cabinet asks this console for its decisions
  bool tradotta_ = false;  ///< once: a second time would take the translations for Italian
};

}  // namespace lokera
