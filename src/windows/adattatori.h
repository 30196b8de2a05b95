#pragma once

#include <functional>

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

std::unique_ptr<Adattatore> adatta_lampada(Shape& shape, QWidget& widget, Traduttore& traduttore);
std::unique_ptr<Adattatore> adatta_numero(Controllo& numero, QWidget& widget);
std::unique_ptr<Adattatore> adatta_lista(Controllo& controllo, QWidget& widget);
std::unique_ptr<Adattatore> adatta_casella(Controllo& controllo, QWidget& widget);

}  // namespace lokera
