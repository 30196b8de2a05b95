#pragma once

#include <functional>
#include <memory>

#include "access/giorno.h"
#include "cards/invio_tessere.h"
#include "forms/ss_ole_db_grid.h"
#include "link/sessione_download.h"
#include "platform/timer.h"
#include "supervisor/tabellone.h"

namespace lokera {

/// Labels of the main window that the cycle reads and writes.
struct EtichetteCiclo {
  const Label& lblStatus;
  Label& lblStatusD;
  Label& lblLetturaTrans;
};

/// The timer-driven walk over the cabinets: at each tick perhaps a visit to the next one. It ends with the
/// question for the number of stored transactions; the answer goes on in the socket's handler. A visit whose
/// conversation has ended (a window took the session) gives back the timer and touches nothing more.
class CicloDownload {
 public:
  CicloDownload(Finestra& finestra, const ElencoFinestre& finestre, Database& db, TimerFactory& timer,
                Conversazione& wsk_udp, SessioneDownload& sessione, Giorno& giorno, InvioTessere& invio,
                Tabellone& tabellone, LokeraCorrente& corrente, EtichetteCiclo etichette);

  /// One tick. A tick that falls inside a visit only counts.
  void TimerDownload_Timer();

  /// A person wants a visit at once: a tick that counts as the last one before it.
  void mnuScarTrans_Click();

  /// The timer runs from now on, unless a window that has the session stops it (`Fermi::tick`).
  void accendi();

  /// The current cabinet is another one, by no visit: the visit under way, or another conversation with the
  /// one before, ends, and nothing of it is shown any longer.
  void lascia();

  /// The columns that the cycle keeps its state in, added to those that the layout shows.
  void completa_colonne();
  /// A cabinet at the end of the list; `indirizzoIP` in the stored form of 15 characters.
  void aggiungi_lokera(const QString& id, const QString& descrizione, const QString& indirizzoIP);

  /// The time-band run, on every tenth tick. May run the loop.
  std::function<void()> applica_fasce_orarie;
  std::function<void(const Errore&)> segnala;

  SSOleDBGrid grdLokere;   ///< the cabinets of this computer; its current row is the current cabinet
  SSOleDBGrid grdAggOper;  ///< operator changes queued for the current cabinet
  std::unique_ptr<Timer> TimerDownload;

  static constexpr qint16 tick_tra_visite = 10;
  qint16 conta_tick = 0;    ///< ticks since the last successful visit
  qint16 conta_fascie = 0;  ///< ticks since the last time-band run

 private:
  /// The cabinet that is being visited, wherever the cursor of the list goes meanwhile.
  struct Visita {
    QString id, indirizzo;
    int conversazione = 0;
  };

  void conta();
  void visita();
  bool mia(const Visita& visita) const { return sessione_.in_corso(visita.conversazione); }
  void prossima_lokera(Visita& visita);
  void riempi_coda();
  bool collega(Visita& visita);
  void leggi_seriale(const Visita& visita);
  void servi(const Visita& visita);
  void invia_coda(const Visita& visita);
  void visita_fallita(const Visita& visita);
  void azzera_lokera(const Visita& visita);
  int riga(const Visita& visita) const;
  QString cella(const Visita& visita, QStringView colonna) const;
  void scrivi(const Visita& visita, QStringView colonna, const QString& testo);

  const ElencoFinestre& finestre_;
  Database& db_;
  Conversazione& wsk_udp_;
  SessioneDownload& sessione_;
  Giorno& giorno_;
  InvioTessere& invio_;
  Tabellone& tabellone_;
  LokeraCorrente& corrente_;
  EtichetteCiclo e_;
  bool visita_in_corso_ = false;
};

}  // namespace lokera
