#pragma once

#include <QString>

namespace lokera {

class Controllo;

/// What a control's `Tag` says of its column: "column", "column (GROUP WORDS)" or, for an option button,
/// "column=value".
struct Legame {
  QString colonna;  ///< empty for a control that is not bound
  QString qualifica;
  QString valore;  ///< behind "="

  /// Whether the control takes part when a record is shown: the word is one of the group words.
  bool partecipa_a_popola(const QString& gruppo) const;
  /// Whether it takes part when a record is saved: the group words are this text.
  bool partecipa_a_salva(const QString& gruppo) const;
};

Legame legame(const Controllo& controllo);

}  // namespace lokera
