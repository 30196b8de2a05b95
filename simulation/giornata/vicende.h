#pragma once

#include "ledger/coda_tessere.h"
#include "simulation/giornata/sito_giornata.h"

namespace lokera::simulazione {

/// What the people at the desk do in the course of a day, by the seed: cards get and lose groups of keys, are
/// sent again, called back from the cabinets for some hours, added and deleted, as the card window does it;
/// one is deleted just when a band opens that would send it. And once, at night, the clock is set back,
/// sometimes across midnight. Where somebody registers cards in their window, only the clock is left.
class Vicende {
 public:
  /// All of them must outlive the events. `inizio` is the calendar at the start of the day.
  Vicende(const ImpostazioniGiornata& impostazioni, SitoGiornata& sito, VirtualMachine& vm,
          Connection& connessione);

  /// Plans the whole day.
  void programma();

  const QStringList& vive() const { return vive_; }            ///< cards that must be in the registry
  const QStringList& eliminate() const { return eliminate_; }  ///< cards that must leave it

  std::function<void(const QString&)> Errata;  ///< a statement failed

 private:
  struct ApreFascia {
    qlonglong gruppo_oper;
    qlonglong gruppo_chiavi;
    qint64 fra_secondi;
  };

  void una();
  void insieme(const std::function<Errore()>& lavoro);
  Errore cambia_gruppo(const QString& tessera);
  Errore aggiungi();
  void elimina(const QString& tessera);
  Errore accoda_ovunque(const QString& tessera);
  Errore richiama(const QString& tessera, MotivoConservare motivo);
  Errore richiama_per_ore(const QString& tessera);
  void elimina_a_una_fascia();
  std::vector<ApreFascia> prossime_fasce();
  QString viva_di(const ApreFascia& fascia);
  Errore ha_gruppi(const QString& tessera, bool& ne_ha);
  void sposta_indietro();

  ImpostazioniGiornata impostazioni_;
  SitoGiornata& sito_;
  VirtualMachine& vm_;
  Connection& connessione_;
  Caso caso_;
  CodaTessere coda_;
  QStringList vive_;
  QStringList eliminate_;
};

}  // namespace lokera::simulazione
