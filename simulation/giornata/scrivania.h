#pragma once

#include "simulation/giornata/mano.h"
#include "supervisor/console.h"

namespace lokera::simulazione {

/// Somebody at the desk who now and then opens the window of the keys or that of the cards, makes a few moves
/// there, sometimes in the face of a box that stays open for a while, and closes it, sometimes in the middle
/// of a wait. Then the keys are hung as they were registered. All by the seed.
class Scrivania {
 public:
  /// All of them must outlive the desk, which answers the boxes of the machine. `ciclo` passes the time that
  /// a box stays open.
  Scrivania(const ImpostazioniGiornata& impostazioni, SitoGiornata& sito, VirtualMachine& vm,
            EventLoop& ciclo, Console& console);
  ~Scrivania();
  Q_DISABLE_COPY_MOVE(Scrivania)

  /// The rows that the windows need beside those of the site: groups by name, cards with dates.
  static Errore arreda(Connection& c);

  /// Plans the whole day.
  Errore programma();
  /// What failed at cabinets is registered once more, by the windows. Passes time.
  void ripeti();

  bool via() const { return !aperta(); }  ///< nobody has a window open
  /// A window has taken the cabinets' session, or had it just now: what is read meanwhile need not be booked.
  bool tiene_la_sessione() const;
  static bool box_attesa(const QString& testo);
  const RegistriAttesi& attesi() const { return attesi_; }
  int mosse() const { return mosse_; }

  std::function<void(const QString&)> Errata;

 private:
  void viene();
  void continua(int sessione, int mosse);
  void mossa(Finestra& finestra);
  void se_ne_va(Finestra& finestra);
  void appendi_chiavi();
  void risponde(const Messaggio& messaggio);
  void ripeti_in(qlonglong lokera);
  Finestra* aperta() const;
  void fra_secondi(qint64 da, qint64 a, std::function<void()> evento);

  ImpostazioniGiornata impostazioni_;
  SitoGiornata& sito_;
  VirtualMachine& vm_;
  EventLoop& ciclo_;
  Console& console_;
  Caso caso_;
  RegistriAttesi attesi_;
  Mano mano_;
  int sessione_ = 0;  ///< windows opened so far
  int mosse_ = 0;
  bool ripete_ = false;
  Monotonic chiusa_{-3600'000'000'000};  ///< when the last window was left
};

}  // namespace lokera::simulazione
