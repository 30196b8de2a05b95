#pragma once

#include <functional>
#include <memory>

#include "platform/clock.h"
#include "platform/ricompositore.h"
#include "platform/timer.h"
#include "simulation/cabinet/cabinet.h"
#include "simulation/comune/rete.h"

namespace lokera::simulazione {

/// What a person wants at the cabinet. With an empty `chiave` the card is only shown and taken away.
struct Richiesta {
  QByteArray tessera;
  QByteArray chiave;
  char tipo = prelievo;
  bool completa = true;  ///< false: the person lets go after the key was granted
  int pausa_ms = 0;      ///< what the person takes for each step
  QByteArray etichetta;  ///< copied into the ledger's lines
};

enum class Fine {
  fatta,       ///< the key has moved, or the card was shown and accepted with no key wanted
  rinunciata,  ///< granted, and not made use of
  tessera_rifiutata,
  chiave_rifiutata,  ///< also by a cabinet that decides alone
  muta,              ///< no answer in time
  caduta,            ///< the connection went away before anything was granted
};

/// A managed cabinet at its live connection: it asks, waits, obeys. Card shown (00090), key wanted (00091),
/// end of the operation (00092), card taken away (00090).
///
/// An answer that fails to come within the limit counts as a refusal. A grant that may have been given
/// unheard is closed with 00092 as given up, or the console would take no further request. A movement that
/// the console has not confirmed is put into the cabinet's store, to be read there.
class SessioneViva {
 public:
  using AllaFine = std::function<void(Fine)>;

  SessioneViva(Cabinet& cabinet, const Clock& clock, TimerFactory& timer);
  ~SessioneViva();

  /// Takes over a new connection; an older one is closed.
  void collega(std::shared_ptr<Canale> canale);
  /// Ends the connection and, like a lost one, the operation under way.
  void scollega();
  bool viva() const { return canale_ && canale_->aperto(); }
  bool libera() const { return stato_ == Stato::riposo; }

  /// False, and nothing happens, without a connection or while another operation is under way. `alla_fine` is
  /// called once, when the card has been taken away or the connection is gone.
  bool presenta(Richiesta richiesta, AllaFine alla_fine);

  int attesa_ms = 3000;                                         ///< limit for an answer
  std::function<void(char verso, QByteArrayView frame)> Parla;  ///< '<' to the cabinet, '>' from it

 private:
  enum class Stato { riposo, attesa_tessera, scelta, attesa_chiave, mano, attesa_esito, attesa_via };

  void arrivo(QByteArrayView pezzo);
  void caduta();
  void frame(const QByteArray& frame);
  void scatto();
  void prosegui(int ms, Stato stato);
  void passo_compiuto();
  void chiedi(Stato stato, const QByteArray& codice, const QByteArray& testo);
  void mostra_tessera(bool presente);
  void chiedi_chiave();
  void riferisci(bool compiuta);
  void esito_tessera(QByteArrayView risposta);
  void esito_chiave(QByteArrayView risposta);
  void esito_fine(QByteArrayView risposta);
  void senza_risposta();
  void trattieni();
  void annota(const QByteArray& risposta);
  void chiudi(Fine fine);
  void lascia_canali();

  Cabinet& cabinet_;
  const Clock& clock_;
  std::unique_ptr<Timer> timer_;
  std::shared_ptr<Canale> canale_;
  std::shared_ptr<Canale> vecchio_;  // a connection is not destroyed inside its own handler
  Ricompositore pezzi_;
  Stato stato_ = Stato::riposo;
  Richiesta richiesta_;
  AllaFine alla_fine_;
  Fine fine_ = Fine::fatta;
  QByteArray codice_;  // of the frame that waits for its answer
  QByteArray inviato_;
  Monotonic inviato_a_{};
  QByteArray attesa_us_;  // from that moment to the answer noted last
  quint64 n_ = 0;         // the movement being reported, 0 for none
  MovimentoChiave movimento_;
};

}  // namespace lokera::simulazione
