#pragma once

#include <QAction>
#include <QHash>
#include <QMenuBar>

#include "forms/controlli.h"

namespace lokera {

/// The menu tree of a window, made of its menu controls in the order of their declaration.
class BarraMenu : public QObject {
 public:
  /// An entry that others name as their `padre` becomes a menu of its own.
  BarraMenu(const Finestra& finestra, QMenuBar& barra);
  /// Shows the entry's caption and state; false when the control is no menu entry.
  bool aggiorna(const Controllo& controllo) const;

 private:
  void aggiungi(Menu& voce, QMenuBar& barra, bool contiene);
  QHash<const Controllo*, QAction*> azioni_;
  QHash<QString, QMenu*> menu_;
};

}  // namespace lokera
