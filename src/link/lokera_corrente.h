#pragma once

#include "forms/controlli.h"

namespace lokera {

/// The current cabinet, for the whole program: the one that the cycle stands at, or that a window has chosen.
/// What its three labels of the main window show is the state.
class LokeraCorrente {
 public:
  explicit LokeraCorrente(Finestra& principale);

  /// The `ID` of its row; 0 for none.
  qlonglong id() const { return lblID.Caption().toLongLong(); }
  bool nessuna() const { return lblID.Caption().isEmpty(); }
  /// In the form that a socket takes.
  QString indirizzo() const;

  /// `indirizzo` in the stored form of 15 characters. Connects nothing.
  void porta_a(const QString& id, const QString& nome, const QString& indirizzo);

  Label lblID, lblNome, lblIndirizzoIP;
};

}  // namespace lokera
