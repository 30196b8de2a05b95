// Controls that text is typed into.
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QShortcut>

#include "forms/tendina.h"
#include "windows/adattatori.h"

namespace lokera {

using namespace Qt::StringLiterals;

namespace {

class AdattaTesto : public AdattatoreDi<TextBox, QLineEdit> {
 public:
  AdattaTesto(TextBox& c, QLineEdit& w) : AdattatoreDi(c, w) {
    w.setStyleSheet(u"lineedit-password-character: 42"_s);  // "*"
    connect(&w, &QLineEdit::textEdited, this, [this](const QString& testo) {
      c_.Text = testo;
      chiama(c_.Change);
    });
    w.installEventFilter(this);
    scorciatoia("scorciatoia", [&w] {
      w.setFocus(Qt::ShortcutFocusReason);
      w.selectAll();
    });
    scorciatoia("invio", [this] { chiama(c_.Invio); });
  }

 protected:
  bool eventFilter(QObject* oggetto, QEvent* evento) override {
    if (oggetto != &w_ || evento->type() != QEvent::KeyPress || !c_.Invio) return false;
    const int tasto = static_cast<QKeyEvent*>(evento)->key();
    if (tasto != Qt::Key_Return && tasto != Qt::Key_Enter) return false;
    chiama(c_.Invio);
    return true;
  }
  void mostra() override {
    w_.setMaxLength(c_.MaxLength() > 0 ? c_.MaxLength() : 32767);
    w_.setEchoMode(c_.nascosto() ? QLineEdit::Password : QLineEdit::Normal);
    if (w_.text() != c_.Text()) w_.setText(c_.Text);
  }

 private:
  /// A key of the whole window that the drawing names, while the box takes input.
  template <class Lavoro>
  void scorciatoia(const char* proprieta, const Lavoro& lavoro) {
    const QString tasti = w_.property(proprieta).toString();
    if (!tasti.isEmpty())
      connect(new QShortcut(QKeySequence(tasti), &w_), &QShortcut::activated, this, lavoro);
  }
};

class AdattaMaschera : public AdattatoreDi<MaskEdBox, QLineEdit> {
 public:
  AdattaMaschera(MaskEdBox& c, QLineEdit& w) : AdattatoreDi(c, w) {
    w.setInputMask(u"99/99/9999;_"_s);
    connect(&w, &QLineEdit::textEdited, this, [this] { c_.Text = w_.displayText(); });
  }

 protected:
  void mostra() override {
    if (w_.displayText() != c_.Text()) w_.setText(c_.Text);
  }
};

class AdattaTendina : public AdattatoreDi<Tendina, QComboBox> {
 public:
  AdattaTendina(Tendina& c, QComboBox& w) : AdattatoreDi(c, w) {
    if (c.scrivibile()) w.setEditable(true);
    w.setInsertPolicy(QComboBox::NoInsert);
    connect(&w, &QComboBox::activated, this, [this](int voce) {
      const QPointer<QWidget> vivo = widget();
      c_.utente_sceglie_voce(voce);
      if (vivo) aggiorna();
    });
    if (!w.isEditable()) return;
    w.setCompleter(nullptr);  // it would show the rest of a line that the rules know nothing of
    connect(w.lineEdit(), &QLineEdit::textEdited, this, [this](const QString& testo) { c_.Text = testo; });
  }

 protected:
  void mostra() override {
    riempi();
    const int cursore = w_.isEditable() ? w_.lineEdit()->cursorPosition() : 0;
    w_.setCurrentIndex(c_.voce_corrente());
    if (!w_.isEditable() || w_.currentText() == c_.Text()) return;
    w_.setEditText(c_.Text);
    w_.lineEdit()->setCursorPosition(cursore);
  }

 private:
  void riempi() {
    QStringList righe;
    for (int i = 0; i < static_cast<int>(c_.voci().size()); ++i) righe.append(c_.riga(i));
    if (righe == righe_) return;
    righe_ = righe;
    w_.clear();
    w_.addItems(righe);
  }
  QStringList righe_;
};

}  // namespace

std::unique_ptr<Adattatore> adatta_casella(TextBox& testo, QWidget& widget) {
  return adatta_a<AdattaTesto, QLineEdit>(testo, widget);
}

std::unique_ptr<Adattatore> adatta_casella(MaskEdBox& data, QWidget& widget) {
  return adatta_a<AdattaMaschera, QLineEdit>(data, widget);
}

std::unique_ptr<Adattatore> adatta_casella(Tendina& tendina, QWidget& widget) {
  return adatta_a<AdattaTendina, QComboBox>(tendina, widget);
}

}  // namespace lokera
