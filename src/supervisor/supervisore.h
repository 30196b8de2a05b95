#pragma once

#include "access/decisioni.h"
#include "access/fasce.h"
#include "access/giorno.h"
#include "access/pannello_live.h"
#include "cards/invio_tessere.h"
#include "forms/griglia.h"
#include "ledger/movimenti_in_attesa.h"
#include "link/sessione_download.h"
#include "link/sessione_slave.h"
#include "supervisor/accesso.h"
#include "supervisor/acquisizione.h"
#include "supervisor/ciclo_download.h"
#include "supervisor/frm_main.h"
#include "supervisor/lokere_sistema.h"
#include "supervisor/menu_principale.h"
#include "supervisor/partenza.h"
#include "supervisor/tabellone.h"

namespace lokera {

/// The running console: all its parts, put together and tied to one another. It decides nothing itself.
class Supervisore {
 public:
  /// All that is handed in outlives it.
  Supervisore(const Machine& macchina, Database& db, ElencoFinestre& finestre, Traduttore& traduttore,
              ServiziGriglia& griglie);
  Q_DISABLE_COPY_MOVE(Supervisore)

  /// A cabinet of the table has another number, and its keys with it: its live requests go on being decided;
  /// 0 for one that is deleted, whose number another may get.
  /// Does not read the table again, see `Partenza::trova_lokere_sistema`.
  void lokera_rinumerata(qlonglong vecchio, qlonglong nuovo) { slave.rinumerata(vecchio, nuovo); }

  frm_Main principale;  ///< its controls first, then those of the parts, in the order that Tab and
                        ///< translation take

 private:
  Scambio scambio_;  ///< the slots that both sessions fill

 public:
  SessioneSlave slave;        ///< to the managed cabinet, for as long as it lasts
  SessioneDownload download;  ///< to the cabinet that is visited, or that a window talks to
  Conversazione wsk_udp;      ///< the reset of a cabinet that no longer answers
  Giorno giorno;              ///< today's day type, shared by decisions, bands and push
  PannelloLive pannello;
  MovimentiInAttesa in_attesa;  ///< the live movements that could not be booked yet
  Tabellone tabellone;
  InvioTessere invio;
  CicloDownload ciclo;
  Acquisizione acquisizione;
  Decisioni decisioni;
  FasceOrarie fasce;
  Accesso accesso;  ///< its menu entry is the first of the bar
  MenuPrincipale menu;
  griglia griglia_lokere, griglia_agg_oper;
  LokereSistema lokere;
  Partenza partenza;

 private:
  void collega_errori();
  void collega_movimenti();
  void collega_ciclo();
  void collega_menu();
  bool si_puo_finire();

  Traduttore& traduttore_;
  MessageBox& messaggi_;
};

}  // namespace lokera
