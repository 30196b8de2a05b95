#pragma once

#include <functional>

#include "forms/griglia.h"
#include "forms/lavoro.h"
#include "platform/pointer.h"
#include "reports/importazione_sd.h"

namespace lokera {

/// `frm_memoria_sd`: shows how far the import of a card's file is and closes itself at its end. While it is
/// open no cabinet is visited, so nobody else books.
class frm_memoria_sd : public Finestra {
 public:
  /// `documenti` is the folder of the archive copies.
  frm_memoria_sd(ElencoFinestre& elenco, Connection& archivio, ServiziGriglia& servizi, Pointer& puntatore,
                 QString documenti);

  void Form_Load() override;
  /// Imports the file, runs the loop meanwhile, tells what the person must know, and closes the window.
  /// A good import says nothing.
  void importa(const QString& file);

  Label lblFile, lblFase;
  Lavoro lavoro;  ///< the reading, in kB

  /// Movements have been booked.
  std::function<void()> registrati;

 private:
  bool leggi(ImportazioneSd& importazione);
  bool da_registrare(ImportazioneSd& importazione);
  void registra(ImportazioneSd& importazione);
  void di_guasto(const ImportazioneSd& importazione);
  void di_lasciate(const ImportazioneSd& importazione);
  void mostra(const QString& testo);

  Connection& archivio_;
  ServiziGriglia& servizi_;
  Pointer& puntatore_;
  const QString documenti_;
};

}  // namespace lokera
