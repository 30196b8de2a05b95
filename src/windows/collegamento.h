#pragma once

#include <QHash>
#include <QPointer>
#include <QRect>
#include <QStringList>

#include <functional>
#include <memory>
#include <unordered_map>

#include "windows/adattatore.h"
#include "windows/barra_menu.h"

namespace lokera {

/// Binds a window's state to the widgets of its drawing, each control to the widget of its name: shows what
/// the rules set, forwards what the user does, decides nothing. The window and its widgets may go away in
/// either order.
class Collegamento : public QObject, public VistaFinestra {
 public:
  /// Makes the menu, sizes the window for the free part of the screen (an empty one leaves it as drawn) and
  /// ties every control. Panels get their `Top` here, so it comes before Form_Load. `traduttore` for the
  /// words that lamps stand for.
  Collegamento(Finestra& finestra, QWidget& forma, Traduttore& traduttore, const QRect& schermo = {});
  ~Collegamento() override;
  Q_DISABLE_COPY_MOVE(Collegamento)

  /// Controls without a fitting widget and widgets without a control; empty for a sound drawing.
  const QStringList& discordanze() const { return discordanze_; }
  bool stirata() const { return stirata_; }
  QWidget* widget(const Controllo& controllo) const;

  /// Called when the rules are gone; the drawing should go too, later, from the event loop.
  std::function<void()> Finita;

  void cambiata(Finestra& finestra) override;
  void cambiato(Controllo& controllo) override;
  void fuoco(Controllo& controllo) override;
  void distrutta(Finestra& finestra) override;

 protected:
  bool eventFilter(QObject* oggetto, QEvent* evento) override;

 private:
  void crea_menu();
  void lega();
  void lega(Controllo& controllo, const QHash<QString, QWidget*>& disegno);
  bool tasto(QObject* oggetto, int codice);
  void preme(QWidget& pannello, const char* proprieta);
  void fuoco_preso(const QObject* oggetto);
  void chiudi();
  void abilita_ingresso(bool abilitato);

  Finestra* finestra_;
  QPointer<QWidget> forma_;
  Traduttore& traduttore_;
  std::unique_ptr<BarraMenu> menu_;
  std::unordered_map<const Controllo*, std::unique_ptr<Adattatore>> adattatori_;
  QHash<const QObject*, Controllo*> con_fuoco_;
  QStringList discordanze_;
  std::unique_ptr<QObject> blocco_;  ///< keeps input away from a window that takes none
  bool stirata_ = false;
};

}  // namespace lokera
