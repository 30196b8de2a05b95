#pragma once

#include <optional>

#include "forms/controlli.h"
#include "forms/traduttore.h"
#include "platform/clock.h"
#include "platform/dialogs.h"
#include "platform/mscomm.h"
#include "platform/timer.h"
#include "store/connection.h"

namespace lokera {

/// What the desk reader stands on.
struct ServiziLettore {
  Connection& archivio;
  MSCommFactory& seriali;
  const Clock& orologio;
  TimerFactory& timer;
  Traduttore& traduttore;
  MessageBox& messaggi;
  QString nome_computer;
};

/// What the desk reader fills in its window, and what it asks of it.
struct CampiLettura {
  TextBox& txtCodice;  ///< enabled in edit mode only
  TextBox& txtCodiceVer;
  std::function<bool()> nuovo_record;
  /// Called after the code of a new record was filled in: where a row has it already the window says so and
  /// empties both fields.
  std::function<void()> controlla_doppia;
};

/// The reader on the desk, a member of a window with fields for a code: a tag held to it fills the code and,
/// the second time, its repetition. It is only listened to.
///
/// A tag comes in pieces from the event loop. One reading lasts until eight bytes are there or the clock
/// shows another second; whatever else has come by then is dropped. While the reader or `controlla_doppia`
/// shows a box, tags are dropped too, and the window closes after the box.
class LettoreTavolo {
 public:
  LettoreTavolo(Finestra& finestra, const ServiziLettore& servizi, CampiLettura campi);

  /// Opens the port that is stored for this computer. May show a box, so a window that goes on after it holds
  /// a `Finestra::Attesa` around it.
  void Form_Load();
  /// Closes the port and drops what is being read; nothing is shown or filled in after.
  void Form_Unload() { chiudi(); }
  void Command6_Click();  ///< "attiva" stores the number of a port that opens, "disattiva" nothing

  TextBox txtNrSeriale;  ///< the tool tip names its device and those that are there
  CommandButton Command6;

 private:
  bool apri();
  bool apri_porta();
  void attiva(bool attivo);
  void disattiva();
  void chiudi();
  void riapri();
  void perduta();
  int numero() const;
  void mostra_dispositivi();
  Esito<std::optional<QString>> numero_registrato();
  Errore registra_numero();

  void arrivo();
  void raccogli();
  void svuota();
  void fine_lettura();
  void compila(const QString& codice);

  void mostra(const QString& testo);
  QString traduci(const QString& testo) { return servizi_.traduttore.traduci(testo); }

  Finestra& finestra_;
  const ServiziLettore servizi_;
  const CampiLettura campi_;
  const std::unique_ptr<MSComm> porta_;
  const std::unique_ptr<Timer> fine_;    ///< runs while a tag is being read
  const std::unique_ptr<Timer> elenca_;  ///< the devices are looked for once the window stands
  QString testo_lettura_;                ///< two digits for each byte of it
  bool attivo_ = false;                  ///< `Command6` says "disattiva"
  bool occupato_ = false;                ///< with the tag that was read last
};

}  // namespace lokera
