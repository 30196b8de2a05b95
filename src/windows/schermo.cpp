#include "windows/schermo.h"

#include <QApplication>
#include <QScreen>
#include <QWindow>

#include <utility>

#include "windows/forme.h"

namespace lokera {

Schermo::Schermo(Traduttore& traduttore, const QRect& disponibile)
    : traduttore_(traduttore),
      disponibile_(disponibile.isValid() ? disponibile
                                         : QGuiApplication::primaryScreen()->availableGeometry()) {}

namespace {

/// A window that the others wait for must not get lost behind them.
void tieni_sopra(QWidget& forma, const QWidget& sotto) {
  (void)forma.winId();  // makes its handle
  forma.windowHandle()->setTransientParent(sotto.windowHandle());
}

}  // namespace

QWidget* Schermo::disegna(Finestra& finestra) {
  std::unique_ptr<QWidget> forma = crea_forma(finestra.nome());
  if (!forma) return nullptr;
  auto collegamento = std::make_unique<Collegamento>(finestra, *forma, traduttore_, disponibile_);
  collegamento->Finita = [this, f = &finestra] { togli(f); };
  QWidget* disegno = forma.get();
  finestre_[&finestra] = {std::move(forma), std::move(collegamento)};
  return disegno;
}

void Schermo::apri(Finestra& finestra) {
  const QWidget* sotto = QApplication::activeWindow();
  QWidget* forma = disegna(finestra);
  if (!forma) return;
  if (finestra.posto().modale && sotto) tieni_sopra(*forma, *sotto);
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
