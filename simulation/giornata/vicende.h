#pragma once

#include "simulation/giornata/sito_giornata.h"

namespace lokera::simulazione {

/// What the people at the desk do in the course of a day, by the seed: cards get and lose groups of keys, are
/// sent again, added and deleted, as the card window does it. And once, at night, the clock is set back,
/// sometimes across midnight.
class Vicende {
 public:
  /// All of them must outlive the events. `inizio` is the calendar at the start of the day.
  Vicende(const ImpostazioniGiornata& impostazioni, SitoGiornata& sito, VirtualMachine& vm,
          Connection& connessione);

  /// Plans the whole day.
  void programma();

  std::function<void(const QString&)> Errata;  ///< a statement failed

 private:
  void una();
  void cambia_gruppo(const QString& tessera);
  void aggiungi();
  void elimina(const QString& tessera);
  void accoda_ovunque(const QString& tessera);
  void sposta_indietro();
  QString tessera_viva();
  void esegui(const QString& sql, const QVariantList& valori);

  ImpostazioniGiornata impostazioni_;
  SitoGiornata& sito_;
  VirtualMachine& vm_;
  Connection& connessione_;
  VirtualCaso caso_;
  int tessere_;
  int eliminate_ = 0;
};

}  // namespace lokera::simulazione
