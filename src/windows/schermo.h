#pragma once

#include <QObject>
#include <QRect>

#include <memory>
#include <unordered_map>

#include "windows/collegamento.h"

namespace lokera {

/// What a person sees: draws windows, each as long as its rules live. Windows and screen may go away in
/// either order.
class Schermo : public QObject {
 public:
  /// `disponibile`: where windows may stand; empty for the free part of the primary screen. `traduttore`
  /// lives as long as the screen.
  explicit Schermo(Traduttore& traduttore, const QRect& disponibile = {});

  const QRect& disponibile() const { return disponibile_; }

  /// Draws a window before its Form_Load. Not shown yet; null for a window that has no drawing.
  QWidget* disegna(Finestra& finestra);
  /// The same, and shows it when its loading first lets the loop run: by then it is in its language, and a
  /// long list shows its progress.
  void apri(Finestra& finestra);
  void in_primo_piano(const Finestra& finestra);

  /// Null when the window isn't drawn.
  QWidget* forma(const Finestra& finestra) const;
  Collegamento* collegamento(const Finestra& finestra) const;

 private:
  struct Disegnata {
    std::unique_ptr<QWidget> forma;
    std::unique_ptr<Collegamento> collegamento;
  };
  void togli(const Finestra* finestra);

  Traduttore& traduttore_;
  const QRect disponibile_;
  std::unordered_map<const Finestra*, Disegnata> finestre_;
};

}  // namespace lokera
