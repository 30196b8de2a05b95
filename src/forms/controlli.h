#pragma once

#include <QString>
#include <QVariant>

#include <functional>
#include <utility>

#include "forms/finestra.h"
#include "platform/letterali.h"

namespace lokera {

struct Campo;
class VisitaControlli;

/// Colours as 0xRRGGBB.
using Colore = quint32;
constexpr Colore grigio = 0xC0C0C0;
constexpr Colore verde = 0x00C000;
constexpr Colore rosso = 0xFF0000;
constexpr Colore bianco = 0xFFFFFF;
constexpr Colore nero = 0x000000;

/// A property of a control: assigning another value tells the window's view.
template <class T>
class Proprieta {
 public:
  Proprieta(Controllo& controllo, T valore) : controllo_(controllo), valore_(std::move(valore)) {}
  Proprieta(const Proprieta&) = delete;
  Proprieta& operator=(const Proprieta& altra) { return *this = altra.valore_; }
  Proprieta& operator=(const T& valore);
  operator const T&() const { return valore_; }  // NOLINT: read like the value that it holds
  const T& operator()() const { return valore_; }

 private:
  Controllo& controllo_;
  T valore_;
};

/// What every control has. Geometry belongs to the window's drawing, not to its rules.
class Controllo {
 public:
  Controllo(Finestra& finestra, QString nome);
  virtual ~Controllo() = default;
  Controllo(const Controllo&) = delete;
  Controllo& operator=(const Controllo&) = delete;

  const QString& nome() const { return nome_; }
  Finestra& finestra() const { return finestra_; }
  void SetFocus() { finestra_.SetFocus(*this); }

  /// Calls the visitor's function for the kind of this control.
  virtual void accetta(VisitaControlli& visita) = 0;
  /// The name of the widget that draws it; empty when it has none of its own.
  virtual QString disegno() const { return nome_; }

  /// The caption that belongs to the wording of its window and is translated with it; null when it has none.
  virtual Proprieta<QString>* didascalia() { return nullptr; }
  using Traduzione = std::function<QString(const QString&)>;
  /// Puts its caption, and the captions of its columns, through `traduci`.
  virtual void traduci_titoli(const Traduzione& traduci);

  /// What binds it to a column of a record by its `Tag`; a control that is never bound does nothing.
  /// `opzione` is the value that the `Tag` of an option button names.
  virtual void svuota() {}
  virtual void mostra_valore(const QVariant& /*valore*/, const QString& /*opzione*/) {}
  /// What the column takes; invalid when it stays as it is. A text that the column would cut is cut here too.
  virtual QVariant valore(const Campo& /*campo*/, const QString& /*opzione*/) { return {}; }
  /// Whether its `Tag` names a value behind "=".
  virtual bool e_opzione() const { return false; }

  Proprieta<bool> Enabled{*this, true};
  Proprieta<bool> Visible{*this, true};
  Proprieta<QString> Tag{*this, {}};

  std::function<void()> GotFocus;  ///< the user moved into it, or SetFocus did

 protected:
  template <class T>
  friend class Proprieta;
  void notifica() { finestra_.notifica(*this); }

 private:
  Finestra& finestra_;
  const QString nome_;
};

template <class T>
Proprieta<T>& Proprieta<T>::operator=(const T& valore) {
  if (valore_ != valore) {
    valore_ = valore;
    controllo_.notifica();
  }
  return *this;
}

class Label : public Controllo {
 public:
  using Controllo::Controllo;
  Label(Finestra& f, QString nome, const QString& caption) : Controllo(f, std::move(nome)) {
    Caption = caption;
  }
  void accetta(VisitaControlli& visita) override;
  Proprieta<QString>* didascalia() override { return &Caption; }
  void svuota() override { Caption = QString(); }
  void mostra_valore(const QVariant& valore, const QString& opzione) override;
  QVariant valore(const Campo&, const QString&) override { return Caption(); }

  Proprieta<QString> Caption{*this, {}};
  Proprieta<Colore> ForeColor{*this, nero};
};

class CommandButton : public Controllo {
 public:
  CommandButton(Finestra& f, QString nome, const QString& caption) : Controllo(f, std::move(nome)) {
    Caption = caption;
  }
  void accetta(VisitaControlli& visita) override;
  Proprieta<QString>* didascalia() override { return &Caption; }

  Proprieta<QString> Caption{*this, {}};
  std::function<void()> Click;
};

/// A menu entry. `padre` is the name of the entry that holds it, empty for the bar.
class Menu : public Controllo {
 public:
  Menu(Finestra& f, QString nome, const QString& caption, QString padre = {})
      : Controllo(f, std::move(nome)), padre(std::move(padre)) {
    Caption = caption;
  }
  void accetta(VisitaControlli& visita) override;
  Proprieta<QString>* didascalia() override { return &Caption; }

  Proprieta<QString> Caption{*this, {}};
  const QString padre;
  std::function<void()> Click;
};

class TextBox : public Controllo {
 public:
  using Controllo::Controllo;
  void accetta(VisitaControlli& visita) override;
  void svuota() override { Text = QString(); }
  void mostra_valore(const QVariant& valore, const QString& opzione) override;
  QVariant valore(const Campo& campo, const QString& opzione) override;

  Proprieta<QString> Text{*this, {}};
  Proprieta<bool> nascosto{*this, false};  ///< shows "*" for each character (PasswordChar)
  Proprieta<int> MaxLength{*this, 0};      ///< 0 for no limit
  std::function<void()> Change;            ///< after the user changed the text
  std::function<void()> Invio;             ///< Return in it; with none it is the window's
};

/// A date with a mask; `Text` is "__/__/____" when it is empty.
class MaskEdBox : public Controllo {
 public:
  using Controllo::Controllo;
  void accetta(VisitaControlli& visita) override;
  void svuota() override { Text = maschera_vuota.toString(); }
  void mostra_valore(const QVariant& valore, const QString& opzione) override;

  static constexpr QStringView maschera_vuota = u"__/__/____";
  Proprieta<QString> Text{*this, maschera_vuota.toString()};
};

class CheckBox : public Controllo {
 public:
  using Controllo::Controllo;
  void accetta(VisitaControlli& visita) override;
  void svuota() override { Value = 0; }
  void mostra_valore(const QVariant& valore, const QString& opzione) override;
  QVariant valore(const Campo&, const QString&) override { return Value() == 1 ? 1 : 0; }

  Proprieta<QString> Caption{*this, {}};
  Proprieta<int> Value{*this, 0};  ///< 0 or 1
  std::function<void()> Click;
};

/// One of a group. When the user chooses it, the others of its group are put out before `Click`.
class OptionButton : public Controllo {
 public:
  using Controllo::Controllo;
  void accetta(VisitaControlli& visita) override;
  void svuota() override { Value = false; }
  void mostra_valore(const QVariant& valore, const QString& opzione) override;
  QVariant valore(const Campo&, const QString& opzione) override {
    return Value() ? QVariant(opzione) : QVariant();
  }
  bool e_opzione() const override { return true; }

  Proprieta<QString> Caption{*this, {}};
  Proprieta<bool> Value{*this, false};
  std::function<void()> Click;
};

/// How far a long work has come: `Value` of `Max`.
class ProgressBar : public Controllo {
 public:
  using Controllo::Controllo;
  void accetta(VisitaControlli& visita) override;

  Proprieta<int> Max{*this, 100};
  Proprieta<int> Value{*this, 0};
};

/// A coloured lamp.
class Shape : public Controllo {
 public:
  using Controllo::Controllo;
  void accetta(VisitaControlli& visita) override;
  Proprieta<Colore> FillColor{*this, grigio};
};

/// A position's number on the board, written in the lamp of its position.
class NumeroPosizione : public Controllo {
 public:
  using Controllo::Controllo;
  void accetta(VisitaControlli& visita) override;
  QString disegno() const override { return QString(nome()).replace(u"Num_"_s, u"lampade_chiave_"_s); }

  Proprieta<QString> Caption{*this, {}};
  Proprieta<Colore> ForeColor{*this, nero};
};

/// A panel that holds other controls. `Top` is set from the drawing before Form_Load and moves the panel
/// after.
class SSPanel : public Controllo {
 public:
  using Controllo::Controllo;
  void accetta(VisitaControlli& visita) override;
  Proprieta<int> Top{*this, 0};
};

}  // namespace lokera
