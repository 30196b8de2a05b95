#pragma once

#include <QString>

#include <functional>
#include <utility>

#include "forms/finestra.h"
#include "platform/letterali.h"

namespace lokera {

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
  Proprieta<QString> Caption{*this, {}};
  Proprieta<Colore> ForeColor{*this, nero};
};

class CommandButton : public Controllo {
 public:
  CommandButton(Finestra& f, QString nome, const QString& caption) : Controllo(f, std::move(nome)) {
    Caption = caption;
  }
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
  Proprieta<QString> Caption{*this, {}};
  const QString padre;
  std::function<void()> Click;
};

class TextBox : public Controllo {
 public:
  using Controllo::Controllo;
  Proprieta<QString> Text{*this, {}};
  Proprieta<bool> nascosto{*this, false};  ///< shows "*" for each character (PasswordChar)
  Proprieta<int> MaxLength{*this, 0};      ///< 0 for no limit
  std::function<void()> Change;            ///< after the user changed the text
};

/// A text with a mask; `Text` is "__/__/____" when it is empty.
class MaskEdBox : public Controllo {
 public:
  using Controllo::Controllo;
  Proprieta<QString> Text{*this, u"__/__/____"_s};
};

class CheckBox : public Controllo {
 public:
  using Controllo::Controllo;
  Proprieta<QString> Caption{*this, {}};
  Proprieta<int> Value{*this, 0};  ///< 0 or 1
  std::function<void()> Click;
};

class OptionButton : public Controllo {
 public:
  using Controllo::Controllo;
  Proprieta<QString> Caption{*this, {}};
  Proprieta<bool> Value{*this, false};
};

class ComboBox : public Controllo {
 public:
  using Controllo::Controllo;
  Proprieta<QString> Text{*this, {}};
};

/// A coloured lamp.
class Shape : public Controllo {
 public:
  using Controllo::Controllo;
  Proprieta<Colore> FillColor{*this, grigio};
};

/// A panel that holds other controls. `Top` is set from the drawing before Form_Load and moves the panel
/// after.
class SSPanel : public Controllo {
 public:
  using Controllo::Controllo;
  Proprieta<int> Top{*this, 0};
};

}  // namespace lokera
