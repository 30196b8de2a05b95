#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "forms/finestra.h"
#include "platform/timer.h"
#include "supervisor/catalogo_finestre.h"

namespace lokera {

/// Owns the windows that the menus open. A window lives from its opening to the turn of the event loop after
/// its closing; while it lives it is counted among the loaded ones.
class GestoreFinestre {
 public:
  GestoreFinestre(const ElencoFinestre& elenco, const CatalogoFinestre& catalogo, TimerFactory& timer);
  /// The last opened first: a window may stand on an older one.
  ~GestoreFinestre();
  Q_DISABLE_COPY_MOVE(GestoreFinestre)

  /// Binds a new window to what draws it, before its Form_Load; brings an open one to the front. May be
  /// empty.
  std::function<void(Finestra& finestra)> collega;
  std::function<void(Finestra& finestra)> in_primo_piano;

  /// Opens the window; when it is open already it only comes to the front. Null when there is none
  /// of that name. Form_Load may run the loop.
  Finestra* apri(const QString& nome);
  /// The same with a window that the caller has made; it is taken over.
  Finestra* apri(std::unique_ptr<Finestra> nuova);

 private:
  void togli_chiuse();

  const ElencoFinestre& elenco_;
  const CatalogoFinestre& catalogo_;
  std::unique_ptr<Timer> pulizia_;
  std::vector<std::unique_ptr<Finestra>> finestre_;
};

}  // namespace lokera
