#pragma once

#include <functional>
#include <memory>

#include "forms/controlli.h"
#include "forms/didascalie.h"
#include "forms/traduttore.h"
#include "link/lokera_corrente.h"
#include "platform/clock.h"
#include "platform/timer.h"
#include "store/errore.h"

namespace lokera {

/// The main window, open from start to exit: what it shows beside the parts that bring controls of their own
/// (`Supervisore` puts those together).
class frm_Main : public Finestra {
 public:
  frm_Main(ElencoFinestre& finestre, const Clock& orologio, TimerFactory& timer, Traduttore& traduttore);

  /// The start, handed down as `avvia`.
  void Form_Load() override {
    if (avvia) avvia();
  }
  /// The close box does nothing.
  bool Form_Unload() override { return false; }

  void timerOrario_Timer();
  /// The title in the language of the interface, the release behind it.
  void mostra_titolo();
  static QDate data_release();

  /// A failure of the store, for who sits at the desk: the last one stands in `lblErrore`.
  void segnala(const Errore& errore);
  /// How many live movements wait, since when and why, in front of it; none without a failure.
  void segnala_attesa(const Errore& errore, qsizetype quanti, const QDateTime& dal);

  std::function<void()> avvia;
  /// Draws the window on the screen; called in the middle of the start, before the first connection.
  std::function<void()> Show;

  LokeraCorrente corrente;
  Label lblModalità;
  Label lblStatus, lblStatusD, lblPorta, lblPortaD, lblSocket, lblSocketD;
  Label lblLetturaTrans, lblOrarioAgg, lblOrario;
  Label lblNessunaLokera;  ///< in the board's place when this computer has no cabinet: what to do
  Label lblErrore;  ///< how many live movements wait, the last failure of the store: for who sits at the desk

 private:
  Didascalie didascalie_;

 public:
  std::unique_ptr<Timer> timerOrario;

 private:
  QString con_ora(const QDateTime& momento, const QString& che_cosa) const;
  void mostra_errori();

  const Clock& orologio_;
  Traduttore& traduttore_;
  QString movimenti_in_attesa_, ultimo_errore_;  ///< the two halves of `lblErrore`
};

}  // namespace lokera
