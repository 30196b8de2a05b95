#pragma once

#include <vector>

#include "commissioning/archivio_lokere.h"
#include "commissioning/parametri_lokera.h"
#include "commissioning/rete_lokera.h"
#include "forms/tendina.h"
#include "forms/traduttore.h"

namespace lokera {

/// The fields of one cabinet: its row of `parametri`, and its network settings as the search has found them.
class PannelloParametri {
 public:
  explicit PannelloParametri(Finestra& finestra);

  /// The words of the lists in the language of the interface, and the computers.
  Errore riempi_elenchi(Traduttore& traduttore, Connection& archivio);

  void mostra(const Recordset& riga);
  /// No row: empty, with the values that a new cabinet begins with.
  void svuota();

  /// What the fields say, times within their limits.
  ParametriLokera parametri() const;
  /// The columns of the row, but for its number.
  std::vector<ValoreLokera> valori(const ParametriLokera& p) const;
  ReteLokera rete() const;

  SSPanel pnlPar;
  TextBox txtID, txtDescrizione;
  ComboBox cmbPC, cmbFunzMod, cmbLingua, cmbDataOra, cmbRetroilluminatio;
  TextBox txtTimeComServer, txtTimeSbloccoPorta, txtTimeStart, txtTimeEnd;
  TextBox txtDownlaod, txtPortaSlave, txtOrarioAgg;
  TextBox txtIndirizzoIP, txtPort, txtSubMask, txtGateway;

 private:
  /// A field and the column that it shows.
  struct Legame {
    QStringView colonna;
    Controllo* controllo;
  };
  std::vector<Legame> legami_;
};

}  // namespace lokera
