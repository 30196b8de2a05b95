// Controls that text is typed into.
#include <QComboBox>
#include <QLineEdit>

#include "forms/ss_ole_db_combo.h"
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
  }

 protected:
  void mostra() override {
    w_.setMaxLength(c_.MaxLength() > 0 ? c_.MaxLength() : 32767);
    w_.setEchoMode(c_.nascosto() ? QLineEdit::Password : QLineEdit::Normal);
    if (w_.text() != c_.Text()) w_.setText(c_.Text);
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

class AdattaCombo : public AdattatoreDi<ComboBox, QComboBox> {
 public:
  AdattaCombo(ComboBox& c, QComboBox& w) : AdattatoreDi(c, w) {
    connect(&w, &QComboBox::textActivated, this, [this](const QString& testo) { c_.Text = testo; });
    if (w.isEditable())
      connect(w.lineEdit(), &QLineEdit::textEdited, this, [this](const QString& testo) { c_.Text = testo; });
  }

 protected:
  void mostra() override {
    if (w_.currentText() == c_.Text()) return;
    w_.setCurrentIndex(w_.findText(c_.Text));
    if (w_.isEditable()) w_.setEditText(c_.Text);
  }
};

/// A drop-down list of several columns: the list shows them all, the text is the first.
class AdattaComboColonne : public AdattatoreDi<SSOleDBCombo, QComboBox> {
 public:
  AdattaComboColonne(SSOleDBCombo& c, QComboBox& w) : AdattatoreDi(c, w) {
    w.setEditable(true);
    w.setInsertPolicy(QComboBox::NoInsert);
    connect(&w, &QComboBox::activated, this, [this](int voce) {
      const QPointer<QWidget> vivo = widget();
      c_.utente_sceglie_voce(voce);
      if (vivo) aggiorna();
    });
    connect(w.lineEdit(), &QLineEdit::textEdited, this, [this](const QString& testo) { c_.Text = testo; });
  }

 protected:
  void mostra() override {
    riempi();
    w_.setCurrentIndex(c_.voce_corrente());
    if (w_.currentText() != c_.Text()) w_.setEditText(c_.Text);
  }

 private:
  void riempi() {
    QStringList righe;
    for (const QStringList& voce : c_.voci()) righe.append(voce.join(u"   "_s));
    if (righe == righe_) return;
    righe_ = righe;
    w_.clear();
    w_.addItems(righe);
  }
  QStringList righe_;
};

template <class A, class C, class W>
std::unique_ptr<Adattatore> prova(Controllo& controllo, QWidget& widget) {
  auto* c = dynamic_cast<C*>(&controllo);
  auto* w = qobject_cast<W*>(&widget);
  return c && w ? std::make_unique<A>(*c, *w) : nullptr;
}

}  // namespace

std::unique_ptr<Adattatore> adatta_casella(Controllo& c, QWidget& w) {
  if (auto a = prova<AdattaTesto, TextBox, QLineEdit>(c, w)) return a;
  if (auto a = prova<AdattaMaschera, MaskEdBox, QLineEdit>(c, w)) return a;
  if (auto a = prova<AdattaCombo, ComboBox, QComboBox>(c, w)) return a;
  return prova<AdattaComboColonne, SSOleDBCombo, QComboBox>(c, w);
}

}  // namespace lokera
