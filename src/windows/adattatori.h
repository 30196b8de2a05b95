#pragma once

#include <functional>

#include "forms/visita_controlli.h"
#include "windows/adattatore.h"

namespace lokera {

/// An adapter that knows both of its ends.
template <class C, class W>
class AdattatoreDi : public Adattatore {
 public:
  AdattatoreDi(C& c, W& w) : Adattatore(c, w), c_(c), w_(w) {}

 protected:
  /// A handler of the rules. It may close the window, so nothing is touched after it.
  static void chiama(const std::function<void()>& evento) {
    if (const auto copia = evento) copia();
  }
  C& c_;
  W& w_;
};

/// The adapter A when the widget is a W, null when it is another.
template <class A, class W, class C, class... Altro>
std::unique_ptr<Adattatore> adatta_a(C& controllo, QWidget& widget, Altro&... altro) {
  auto* w = qobject_cast<W*>(&widget);
  return w ? std::make_unique<A>(controllo, *w, altro...) : nullptr;
}

// One function for each kind of control; null when the widget can't show it.
std::unique_ptr<Adattatore> adatta_lampada(Shape& shape, QWidget& widget, Traduttore& traduttore);
std::unique_ptr<Adattatore> adatta_numero(NumeroPosizione& numero, QWidget& widget);
std::unique_ptr<Adattatore> adatta_lista(SSOleDBGrid& grd, QWidget& widget);
std::unique_ptr<Adattatore> adatta_casella(TextBox& testo, QWidget& widget);
std::unique_ptr<Adattatore> adatta_casella(MaskEdBox& data, QWidget& widget);
std::unique_ptr<Adattatore> adatta_casella(Tendina& tendina, QWidget& widget);

}  // namespace lokera
