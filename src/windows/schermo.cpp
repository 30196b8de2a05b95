#include "windows/schermo.h"

#include <QGuiApplication>
#include <QScreen>

#include <utility>

#include "windows/forme.h"

namespace lokera {

Schermo::Schermo(Console& console, const QRect& disponibile)
    : console_(console),
      disponibile_(disponibile.isValid() ? disponibile
                                         : QGuiApplication::primaryScreen()->availableGeometry()) {
  console.griglie().larghezza_schermo = disponibile_.width();
  console.finestre().collega = [this](Finestra& f) { apri(f); };
  console.finestre().in_primo_piano = [this](Finestra& f) { in_primo_piano(f); };
  QWidget* principale = disegna(console.principale());
  console.principale().Show = [this, principale] {
    if (PrimaDiMostrare) PrimaDiMostrare();
    principale->show();
  };
}

Schermo::~Schermo() {
  console_.finestre().collega = nullptr;
  console_.finestre().in_primo_piano = nullptr;
  console_.principale().Show = nullptr;
}

QWidget* Schermo::disegna(Finestra& finestra) {
  std::unique_ptr<QWidget> forma = crea_forma(finestra.nome());
  if (!forma) return nullptr;
  auto collegamento = std::make_unique<Collegamento>(finestra, *forma, console_.traduttore(), disponibile_);
  collegamento->Finita = [this, f = &finestra] { togli(f); };
  QWidget* disegno = forma.get();
  finestre_[&finestra] = {std::move(forma), std::move(collegamento)};
  return disegno;
}

void Schermo::apri(Finestra& finestra) {
  QWidget* forma = disegna(finestra);
  // Shown when its loading first lets the loop run: by then it is in its language, and a long list shows
  // its progress.
  if (forma)
    QMetaObject::invokeMethod(
        forma, [forma] { forma->show(); }, Qt::QueuedConnection);
}

void Schermo::togli(const Finestra* finestra) {
  const auto it = finestre_.find(finestra);
  if (it == finestre_.end()) return;
  Disegnata disegnata = std::exchange(it->second, {});
  finestre_.erase(it);
  // Its widgets may be in the middle of an event, and the binder is what calls here.
  disegnata.forma->hide();
  disegnata.forma.release()->deleteLater();
  disegnata.collegamento.release()->deleteLater();
}

QWidget* Schermo::forma(const Finestra& finestra) const {
  const auto it = finestre_.find(&finestra);
  return it == finestre_.end() ? nullptr : it->second.forma.get();
}

Collegamento* Schermo::collegamento(const Finestra& finestra) const {
  const auto it = finestre_.find(&finestra);
  return it == finestre_.end() ? nullptr : it->second.collegamento.get();
}

void Schermo::in_primo_piano(const Finestra& finestra) {
  QWidget* disegno = forma(finestra);
  if (!disegno) return;
  disegno->setWindowState(disegno->windowState() & ~Qt::WindowMinimized);
  disegno->show();
  disegno->raise();
  disegno->activateWindow();
}

}  // namespace lokera
