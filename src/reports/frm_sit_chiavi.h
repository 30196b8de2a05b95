#pragma once

#include "forms/controlli.h"
#include "forms/traduttore.h"
#include "platform/clock.h"

namespace lokera {

/// The current cabinet's keys in three numbers, kept by the board.
class frm_sit_chiavi : public Finestra {
 public:
  frm_sit_chiavi(ElencoFinestre& elenco, Traduttore& traduttore, const Clock& orologio);

  void Form_Load() override;
  void mostra(const QString& lokera, int presenti, int uscite, int non_gestite);

  Label lblNome, lblData;
  Label lblPresenti, lblUscite, lblNonGestite;  ///< what is counted
  Label lblNumPresenti, lblNumUscite, lblNumNonGestite;
  CommandButton Command1;  ///< "chiudi"

 private:
  void mostra_ora();

  Traduttore& traduttore_;
  const Clock& orologio_;
};

}  // namespace lokera
