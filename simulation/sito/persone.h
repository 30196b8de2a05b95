#pragma once

#include <memory>
#include <vector>

#include "simulation/cabinet/cabinet_server.h"

namespace lokera::simulazione {

/// A seed of its own for member `indice` of a group that shares `seme`.
quint64 seme_di(quint64 seme, quint64 indice);

/// The people of one cabinet: they take keys and bring them back, live or not, as the cabinet works. All that
/// they do comes from the seed and the moment of the call.
class Persone {
 public:
  struct Abitudini {
    quint64 seme = 1;
    int eventi_ora = 20;  ///< withdrawals and returns together, on average; 0 for nobody at all
    /// How long a key is out; 0 stands for half and for six times the time between two withdrawals.
    qint64 assenza_min_ms = 0;
    qint64 assenza_max_ms = 0;
    int a_caso = 100;         ///< in a thousand: a withdrawal of any key by any card, allowed or not
    int rinuncia = 50;        ///< in a thousand: a grant not made use of, live only
    int altra_tessera = 100;  ///< in a thousand: a key brought back by somebody else
    int pausa_ms = 1000;      ///< for each step of a live operation
    std::vector<QByteArray> tessere = {};  ///< cards of the site; besides those the cabinet knows
  };

  /// All arguments must outlive the people.
  Persone(CabinetServer& cabinet, const Clock& clock, TimerFactory& timer, Abitudini abitudini);

  /// From now on, or no longer. Keys that are out stay with those who have them.
  void attive(bool attive);
  /// Nobody takes a key any more; those out still come back.
  void basta_prelievi() { prelievi_ = false; }
  int fuori() const { return static_cast<int>(fuori_.size()); }

 private:
  struct InGiro {
    QByteArray chiave;
    QByteArray tessera;
    Monotonic ritorno;
  };

  void passo();
  void programma();
  void preleva();
  void restituisci(const InGiro& una);
  void tratta(const Richiesta& richiesta);
  void uscita(const Richiesta& richiesta);
  bool rientrata(const QByteArray& chiave);
  QByteArray tessera_a_caso();
  std::vector<QByteArray> chiavi_dentro() const;
  Richiesta scegli(const std::vector<QByteArray>& chiavi);
  Monotonic fra(qint64 da_ms, qint64 a_ms);
  qint64 intervallo_ms() const;

  CabinetServer& cabinet_;
  const Clock& clock_;
  Abitudini abitudini_;
  Caso caso_;
  std::unique_ptr<Timer> timer_;
  std::vector<InGiro> fuori_;
  Monotonic prossimo_{};
  bool prelievi_ = true;
  std::shared_ptr<bool> esiste_ = std::make_shared<bool>(true);  // an operation may end after its people
};

}  // namespace lokera::simulazione
