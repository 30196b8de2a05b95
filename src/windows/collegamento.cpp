#include "windows/collegamento.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QMainWindow>

#include "windows/disegno.h"

namespace lokera {

using namespace Qt::StringLiterals;

namespace {

/// Takes new input to a window and its menus away, without the grey look of disabled widgets.
class Blocco : public QObject {
 public:
  explicit Blocco(const QWidget& forma) : forma_(forma) { qApp->installEventFilter(this); }

 protected:
  bool eventFilter(QObject* oggetto, QEvent* evento) override {
    switch (evento->type()) {
      case QEvent::MouseButtonPress:
      case QEvent::MouseButtonDblClick:
      case QEvent::KeyPress:
      case QEvent::Shortcut:
      case QEvent::ShortcutOverride:
      case QEvent::Wheel:
      case QEvent::ContextMenu:
      case QEvent::TouchBegin:
        return della_finestra(oggetto);
      default:
        return false;
    }
  }

 private:
  bool della_finestra(const QObject* oggetto) const {
    if (!oggetto->isWidgetType()) return false;
    while (oggetto && oggetto != &forma_) oggetto = oggetto->parent();
    return oggetto != nullptr;
  }
  const QWidget& forma_;
};

}  // namespace

Collegamento::Collegamento(Finestra& finestra, QWidget& forma, Traduttore& traduttore, const QRect& schermo)
    : finestra_(&finestra), forma_(&forma), traduttore_(traduttore) {
  crea_menu();
  if (schermo.isValid()) stirata_ = stira(forma, schermo, finestra.posto().si_adatta);
  if (finestra.posto().modale) forma.setWindowModality(Qt::ApplicationModal);
  lega();
  forma.installEventFilter(this);
  finestra.vista(this);
  for (const auto& [controllo, adattatore] : adattatori_) adattatore->aggiorna();
  cambiata(finestra);
}

Collegamento::~Collegamento() {
  for (const auto& [controllo, adattatore] : adattatori_) adattatore->scollega(finestra_ != nullptr);
  if (finestra_) finestra_->vista(nullptr);
}

void Collegamento::crea_menu() {
  auto* principale = qobject_cast<QMainWindow*>(forma_);
  if (principale) menu_ = std::make_unique<BarraMenu>(*finestra_, *principale->menuBar());
}

void Collegamento::lega() {
  const QHash<QString, QWidget*> disegno = widget_con_nome(*forma_);
  QHash<QString, QWidget*> restano = disegno;
  for (Controllo* c : finestra_->Controls()) {
    lega(*c, disegno);
    restano.remove(c->disegno());
  }
  for (auto it = restano.cbegin(); it != restano.cend(); ++it) {
    if (!solo_contiene(*it.value()))
      discordanze_.append(u"%1: a widget without a control"_s.arg(it.key()));
    else if (it.value()->property("predefinito").isValid())
      it.value()->installEventFilter(this);
  }
}

void Collegamento::lega(Controllo& controllo, const QHash<QString, QWidget*>& disegno) {
  if (controllo.disegno().isEmpty()) return;
  if (menu_ && menu_->aggiorna(controllo)) return;
  QWidget* widget = disegno.value(controllo.disegno());
  auto adattatore = widget ? adatta(controllo, *widget, traduttore_) : nullptr;
  if (!adattatore) {
    discordanze_.append(widget ? u"%1: a %2 doesn't fit it"_s.arg(
                                     controllo.nome(), QLatin1StringView(widget->metaObject()->className()))
                               : u"%1: a control without a widget"_s.arg(controllo.nome()));
    return;
  }
  QWidget* col_fuoco = widget->focusProxy() ? widget->focusProxy() : widget;
  con_fuoco_.insert(col_fuoco, &controllo);
  col_fuoco->installEventFilter(this);
  adattatori_.emplace(&controllo, std::move(adattatore));
}

QWidget* Collegamento::widget(const Controllo& controllo) const {
  const auto it = adattatori_.find(&controllo);
  return it == adattatori_.end() ? nullptr : it->second->widget();
}

void Collegamento::cambiata(Finestra& finestra) {
  if (!forma_) return;
  forma_->setWindowTitle(finestra.Caption().trimmed());
  abilita_ingresso(finestra.Enabled());
  for (const auto& [controllo, adattatore] : adattatori_) adattatore->titolo_cambiato();
}

void Collegamento::cambiato(Controllo& controllo) {
  if (!forma_ || (menu_ && menu_->aggiorna(controllo))) return;
  if (const auto it = adattatori_.find(&controllo); it != adattatori_.end()) it->second->aggiorna();
}

void Collegamento::fuoco(Controllo& controllo) {
  if (QWidget* w = widget(controllo)) w->setFocus(Qt::OtherFocusReason);
}

void Collegamento::distrutta(Finestra&) {
  finestra_ = nullptr;
  blocco_.reset();
  menu_.reset();
  for (const auto& [controllo, adattatore] : adattatori_) adattatore->scollega(false);
  adattatori_.clear();
  con_fuoco_.clear();
  if (Finita) Finita();
}

void Collegamento::abilita_ingresso(bool abilitato) {
  if (abilitato)
    blocco_.reset();
  else if (!blocco_)
    blocco_ = std::make_unique<Blocco>(*forma_);
}

bool Collegamento::eventFilter(QObject* oggetto, QEvent* evento) {
  if (!finestra_ || !forma_) return false;
  switch (evento->type()) {
    case QEvent::Close:
      if (oggetto != forma_) return false;
      evento->ignore();
      chiudi();
      return true;
    case QEvent::FocusIn:
      fuoco_preso(oggetto);
      return false;
    case QEvent::KeyPress:
      return tasto(oggetto, static_cast<QKeyEvent*>(evento)->key());
    default:
      return false;
  }
}

void Collegamento::chiudi() {
  for (Controllo* c : finestra_->Controls())
    if (const auto it = adattatori_.find(c); it != adattatori_.end()) it->second->conferma();
  if (finestra_) finestra_->chiudi();
}

void Collegamento::fuoco_preso(const QObject* oggetto) {
  Controllo* controllo = con_fuoco_.value(oggetto);
  // One that comes back from a message box or another window is the active one still.
  if (controllo && finestra_->ActiveControl() != controllo) finestra_->SetFocus(*controllo);
}

// A panel, or the window itself, names the buttons that Return and Esc stand for.
bool Collegamento::tasto(QObject* oggetto, int codice) {
  auto* pannello = qobject_cast<QWidget*>(oggetto);
  if (!pannello || !pannello->property("predefinito").isValid()) return false;
  if (codice == Qt::Key_Escape) {
    preme(*pannello, "annulla");
    return true;
  }
  if (codice != Qt::Key_Return && codice != Qt::Key_Enter) return false;
  if (auto* pulsante = qobject_cast<QAbstractButton*>(QApplication::focusWidget()))
    pulsante->click();
  else
    preme(*pannello, "predefinito");
  return true;
}

void Collegamento::preme(QWidget& pannello, const char* proprieta) {
  const QString nome = pannello.property(proprieta).toString();
  if (auto* pulsante = pannello.findChild<QAbstractButton*>(nome)) pulsante->click();
}

}  // namespace lokera
