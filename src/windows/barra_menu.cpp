#include "windows/barra_menu.h"

#include <QMenu>
#include <QSet>

#include "forms/visita_controlli.h"
#include "windows/adattatore.h"

namespace lokera {

BarraMenu::BarraMenu(const Finestra& finestra, QMenuBar& barra) {
  QSet<QString> padri;
  for (Controllo* c : finestra.Controls())
    if (const auto* voce = come<Menu>(c)) padri.insert(voce->padre);
  for (Controllo* c : finestra.Controls())
    if (auto* voce = come<Menu>(c)) aggiungi(*voce, barra, padri.contains(voce->nome()));
}

void BarraMenu::aggiungi(Menu& voce, QMenuBar& barra, bool contiene) {
  QWidget* sopra = menu_.value(voce.padre, nullptr);
  if (!sopra) sopra = &barra;
  QAction* azione = nullptr;
  if (contiene) {
    auto* menu = new QMenu(sopra);
    menu_.insert(voce.nome(), menu);
    azione = menu->menuAction();
  } else {
    azione = new QAction(sopra);
    connect(azione, &QAction::triggered, this, [&voce] {
      if (const auto click = voce.Click) click();
    });
  }
  azione->setObjectName(voce.nome());
  sopra->addAction(azione);
  azioni_.insert(&voce, azione);
  aggiorna(voce);
}

bool BarraMenu::aggiorna(const Controllo& controllo) const {
  QAction* azione = azioni_.value(&controllo);
  if (!azione) return false;
  azione->setText(titolo_mostrato(static_cast<const Menu&>(controllo).Caption));
  azione->setEnabled(controllo.Enabled());
  azione->setVisible(controllo.Visible());
  return true;
}

}  // namespace lokera
