#pragma once

#include <QObject>
#include <QRect>

#include <functional>
#include <memory>
#include <unordered_map>

#include "supervisor/console.h"
#include "windows/collegamento.h"

namespace lokera {

/// What a person sees of a console: draws its windows, each as long as its rules live. The console outlives
/// it.
class Schermo : public QObject {
 public:
  /// `disponibile`: where windows may stand; empty for the free part of the primary screen.
  explicit Schermo(Console& console, const QRect& disponibile = {});
  ~Schermo() override;
  Q_DISABLE_COPY_MOVE(Schermo)

  /// Null when the window isn't drawn.
  QWidget* forma(const Finestra& finestra) const;
  Collegamento* collegamento(const Finestra& finestra) const;

  /// Just before the main window shows itself, the language being known.
  std::function<void()> PrimaDiMostrare;

 private:
  struct Disegnata {
    std::unique_ptr<QWidget> forma;
    std::unique_ptr<Collegamento> collegamento;
  };
  QWidget* disegna(Finestra& finestra);
  void apri(Finestra& finestra);
  void in_primo_piano(const Finestra& finestra);
  void togli(const Finestra* finestra);

  Console& console_;
  QRect disponibile_;
  std::unordered_map<const Finestra*, Disegnata> finestre_;
};

}  // namespace lokera
