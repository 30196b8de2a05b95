#include "windows/forma_principale.h"

#include <QEvent>

#include "ui_frm_main.h"

namespace lokera {

using namespace Qt::StringLiterals;

namespace {
constexpr int lampade_pannello = 18;
}

FormaPrincipale::FormaPrincipale() : ui_(std::make_unique<Ui::frm_Main>()) {
  ui_->setupUi(this);
  QPalette sfondo = palette();
  sfondo.setColor(QPalette::Window, QColor(0xEE, 0xF1, 0xF4));
  ui_->centro->setPalette(sfondo);
  ui_->centro->setAutoFillBackground(true);
  crea_lampade();
  ui_->grdLokere->installEventFilter(this);
}

FormaPrincipale::~FormaPrincipale() = default;

void FormaPrincipale::crea_lampade() {
  for (int p = 0; auto* pannello = findChild<QFrame*>(u"pnlK_%1"_s.arg(p)); ++p) {
    const int passo = pannello->width() / lampade_pannello;
    for (int i = 0; i < lampade_pannello; ++i) {
      auto* lampada = new LampadaWidget(pannello);
      const int posizione = p * lampade_pannello + i + 1;
      lampada->setObjectName(u"lampade_chiave_%1"_s.arg(posizione));
      lampada->setProperty("tipo", u"chiave"_s);
      lampada->setGeometry(i * passo, 1, passo, pannello->height() - 2);
    }
  }
}

bool FormaPrincipale::eventFilter(QObject* oggetto, QEvent* evento) {
  if (oggetto == ui_->grdLokere &&
      (evento->type() == QEvent::ShowToParent || evento->type() == QEvent::HideToParent))
    disponi_liste();
  return QMainWindow::eventFilter(oggetto, evento);
}

// A site with one cabinet has no list of them; the queue takes its room.
void FormaPrincipale::disponi_liste() {
  const QRect lokere = ui_->grdLokere->geometry();
  QRect coda = ui_->grdAggOper->geometry();
  coda.setLeft(ui_->grdLokere->isVisibleTo(this) ? ui_->riquadroLive->x() : lokere.x());
  ui_->grdAggOper->setGeometry(coda);
}

}  // namespace lokera
