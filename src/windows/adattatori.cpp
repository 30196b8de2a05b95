#include "windows/adattatori.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QEvent>
#include <QFrame>
#include <QGroupBox>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>

#include "windows/lampada_widget.h"

namespace lokera {

using namespace Qt::StringLiterals;

QString titolo_mostrato(const QString& caption) {
  return caption.trimmed().replace(u"&"_s, u"&&"_s);
}

void Adattatore::aggiorna() {
  if (!widget_) return;
  widget_->setEnabled(controllo_.Enabled());
  widget_->setToolTip(controllo_.ToolTip());
  mostra();
  widget_->setVisible(controllo_.Visible());
}

namespace {

class AdattaLabel : public AdattatoreDi<Label, QLabel> {
 public:
  AdattaLabel(Label& c, QLabel& w) : AdattatoreDi(c, w) { w.setTextFormat(Qt::PlainText); }

 protected:
  void mostra() override {
    w_.setText(c_.Caption().trimmed());
    if (w_.buddy()) w_.buddy()->setAccessibleName(c_.Caption().trimmed());
    if (c_.ForeColor() == nero) return;  // the drawing's own
    QPalette colori = w_.palette();
    colori.setColor(QPalette::WindowText, qcolor(c_.ForeColor));
    w_.setPalette(colori);
  }
};

class AdattaPulsante : public AdattatoreDi<CommandButton, QPushButton> {
 public:
  AdattaPulsante(CommandButton& c, QPushButton& w) : AdattatoreDi(c, w) {
    w.setAutoDefault(false);
    w.installEventFilter(this);
    connect(&w, &QPushButton::clicked, this, [this] { chiama(c_.Click); });
  }

 protected:
  // A double click means one press: done twice, a save would go on with what the first one left in the boxes.
  bool eventFilter(QObject* oggetto, QEvent* evento) override {
    return oggetto == &w_ && evento->type() == QEvent::MouseButtonDblClick;
  }
  void mostra() override {
    w_.setText(titolo_mostrato(c_.Caption));
    w_.setAccessibleName(c_.Caption().trimmed());
  }
};

class AdattaSpunta : public AdattatoreDi<CheckBox, QCheckBox> {
 public:
  AdattaSpunta(CheckBox& c, QCheckBox& w) : AdattatoreDi(c, w) {
    connect(&w, &QCheckBox::clicked, this, [this](bool accesa) {
      c_.Value = accesa ? 1 : 0;
      chiama(c_.Click);
    });
  }

 protected:
  void mostra() override {
    w_.setText(titolo_mostrato(c_.Caption));
    w_.setChecked(c_.Value() != 0);
  }
};

class AdattaOpzione : public AdattatoreDi<OptionButton, QRadioButton> {
 public:
  AdattaOpzione(OptionButton& c, QRadioButton& w) : AdattatoreDi(c, w) {
    connect(&w, &QRadioButton::toggled, this, [this](bool accesa) { c_.Value = accesa; });
    connect(&w, &QRadioButton::clicked, this, [this] { chiama(c_.Click); });
  }

 protected:
  void mostra() override {
    w_.setText(titolo_mostrato(c_.Caption));
    if (w_.isChecked() == c_.Value()) return;
    // The last one of a group can't be put out while the group insists on one.
    const bool esclusivo = w_.autoExclusive();
    w_.setAutoExclusive(esclusivo && c_.Value());
    w_.setChecked(c_.Value);
    w_.setAutoExclusive(esclusivo);
  }
};

class AdattaAvanzamento : public AdattatoreDi<ProgressBar, QProgressBar> {
 public:
  using AdattatoreDi::AdattatoreDi;

 protected:
  void mostra() override {
    w_.setRange(0, c_.Max);
    w_.setValue(c_.Value);
  }
};

class AdattaPannello : public AdattatoreDi<SSPanel, QFrame> {
 public:
  AdattaPannello(SSPanel& c, QFrame& w) : AdattatoreDi(c, w) { c.Top = w.y(); }

 protected:
  void mostra() override {
    const QWidget* sotto = w_.parentWidget();
    if (w_.property("centrato").toBool() && sotto) {
      w_.move((sotto->width() - w_.width()) / 2, (sotto->height() - w_.height()) / 2);
      w_.raise();
    } else {
      w_.move(w_.x(), c_.Top);
    }
  }
};

/// Finds the adapter by the control's kind.
class Adatta : public VisitaControlli {
 public:
  Adatta(QWidget& widget, Traduttore& traduttore) : w_(widget), traduttore_(traduttore) {}
  void visita(Label& c) override { trovato = adatta_a<AdattaLabel, QLabel>(c, w_); }
  void visita(CommandButton& c) override { trovato = adatta_a<AdattaPulsante, QPushButton>(c, w_); }
  void visita(CheckBox& c) override { trovato = adatta_a<AdattaSpunta, QCheckBox>(c, w_); }
  void visita(OptionButton& c) override { trovato = adatta_a<AdattaOpzione, QRadioButton>(c, w_); }
  void visita(ProgressBar& c) override { trovato = adatta_a<AdattaAvanzamento, QProgressBar>(c, w_); }
  void visita(SSPanel& c) override {
    if (!qobject_cast<QLabel*>(&w_)) trovato = adatta_a<AdattaPannello, QFrame>(c, w_);
  }
  void visita(TextBox& c) override { trovato = adatta_casella(c, w_); }
  void visita(MaskEdBox& c) override { trovato = adatta_casella(c, w_); }
  void visita(Tendina& c) override { trovato = adatta_casella(c, w_); }
  void visita(Shape& c) override { trovato = adatta_lampada(c, w_, traduttore_); }
  void visita(NumeroPosizione& c) override { trovato = adatta_numero(c, w_); }
  void visita(SSOleDBGrid& c) override { trovato = adatta_lista(c, w_); }

  std::unique_ptr<Adattatore> trovato;

 private:
  QWidget& w_;
  Traduttore& traduttore_;
};

}  // namespace

std::unique_ptr<Adattatore> adatta(Controllo& c, QWidget& w, Traduttore& traduttore) {
  Adatta adatta(w, traduttore);
  c.accetta(adatta);
  return std::move(adatta.trovato);
}

}  // namespace lokera
