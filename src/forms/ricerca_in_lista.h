#pragma once

#include <QStringList>

#include <functional>

#include "forms/ss_ole_db_grid.h"
#include "forms/traduttore.h"

namespace lokera {

/// A box that finds rows of a list while the person types: the current row moves to the first one, from where
/// it is and then from the top, that holds the text in one of `campi`, in any case. Return moves on to the
/// next. No row is ever taken out, and a list that takes no input stays where it is.
///
/// The drawing gives the box its keys by two properties of `txtCerca`: "scorciatoia" (Ctrl+F) moves the focus
/// into it, "invio" (F3) is Return from anywhere in the window.
class RicercaInLista {
 public:
  RicercaInLista(SSOleDBGrid& grd, Traduttore& traduttore, QStringList campi);

  /// What else of a row is looked in, such as a text that is only shown. It is asked for row after row while
  /// nothing is found.
  std::function<QString(int riga)> anche;

  Label lblCerca;  ///< also says that nothing was found
  TextBox txtCerca;

 private:
  void cerca(int da);
  int trova(const QString& testo, int da) const;

  SSOleDBGrid& grd_;
  Traduttore& traduttore_;
  const QStringList campi_;
};

}  // namespace lokera
