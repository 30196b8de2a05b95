#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "platform/ricompositore.h"
#include "simulation/cabinet/comportamento.h"
#include "simulation/cabinet/sessione_viva.h"
#include "simulation/cabinet/uscita.h"
#include "simulation/comune/caso.h"

namespace lokera::simulazione {

/// One cabinet on a network: its command port, its live port, its UDP port, all at the address in use.
/// Several connections to the command port stand side by side; of the live port the newest counts.
///
/// Where another cabinet has the ports of the address already, it is that one's twin: it hears and answers
/// only what is sent to all, until it finds the ports free at a later start.
class CabinetServer {
 public:
  /// All arguments must outlive the server. The cabinet's `Riavvio` becomes the server's.
  CabinetServer(Cabinet& cabinet, Rete& rete, const Clock& clock, TimerFactory& timer,
                const Comportamento& comportamento = {});
  ~CabinetServer();

  /// Switches the cabinet on, under what is stored in it. False when it can't listen, not even as a twin, and
  /// then no port is kept.
  bool apri();
  /// Switches it off.
  void chiudi();
  /// It has all ports of its address.
  bool completo() const { return aperto_ && completo_; }

  /// The cabinet leaves decisions to the console, and the console is there.
  bool in_diretta() const { return cabinet_.gestito() && viva_.viva(); }
  /// A person is served now, by a live session.
  bool occupato() const { return !viva_.libera(); }

  /// A person acts: live when the cabinet is in_diretta(), otherwise the cabinet decides alone, at once, and
  /// `alla_fine` runs inside the call. False when the cabinet is occupied.
  bool richiedi(const Richiesta& richiesta, const SessioneViva::AllaFine& alla_fine);

  Cabinet& cabinet() { return cabinet_; }
  SessioneViva& viva() { return viva_; }

  /// Every frame: the port, '<' to the cabinet or '>' from it, the text.
  std::function<void(quint16 porta, char verso, QByteArrayView frame)> Parla;
  /// Asked before an address that came with new network settings is listened on; false keeps the old one.
  std::function<bool(const QString& indirizzo)> Ammesso;

 private:
  struct Connessione;

  void accetta(const std::shared_ptr<Canale>& canale);
  void accetta_viva(const std::shared_ptr<Canale>& canale);
  bool respinge();
  void frame(Connessione& connessione, const QByteArray& frame);
  void manda(Connessione& connessione, const QByteArray& risposta);
  void datagramma(QByteArrayView dati, const std::function<void(QByteArrayView)>& rispondi);
  void lascia(const Connessione* connessione);
  void chiudi_connessioni();
  bool ascolta();
  bool ascolta_indirizzo();
  void smetti();
  void riavviato();
  void ripresa();
  void parla(quint16 porta, char verso, QByteArrayView frame) const;

  Cabinet& cabinet_;
  Rete& rete_;
  const Clock& clock_;
  TimerFactory& timer_;
  Comportamento comportamento_;
  Caso caso_;
  SessioneViva viva_;
  std::unique_ptr<Timer> ripresa_;
  std::vector<std::shared_ptr<Connessione>> connessioni_;
  std::vector<std::shared_ptr<Connessione>> lasciate_;  // kept until no handler of theirs can be running
  ReteCabinet ascoltata_;
  bool aperto_ = false;
  bool completo_ = false;
  bool in_riavvio_ = false;
};

}  // namespace lokera::simulazione
