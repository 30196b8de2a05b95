#include "windows/adattatori.h"
#include "windows/lista.h"

namespace lokera {

namespace {

constexpr int unita_per_pixel = 15;

class AdattaLista : public AdattatoreDi<SSOleDBGrid, Lista> {
 public:
  AdattaLista(SSOleDBGrid& c, Lista& w) : AdattatoreDi(c, w) {
    c.Width = w.width() * unita_per_pixel;
    w.tabella().collega(c);
  }
  void scollega(bool vive) override {
    if (widget()) w_.tabella().scollega(vive);
  }
  void conferma() override { c_.Update(); }

 protected:
  void mostra() override {
    w_.titolo(c_.Caption().trimmed());
    // A list alone in its window is what the window is called.
    if (c_.Caption().trimmed().isEmpty()) w_.tabella().setAccessibleName(c_.finestra().Caption().trimmed());
    w_.tabella().viewport()->update();
  }
};

}  // namespace

std::unique_ptr<Adattatore> adatta_lista(Controllo& controllo, QWidget& widget) {
  auto* grd = dynamic_cast<SSOleDBGrid*>(&controllo);
  auto* lista = qobject_cast<Lista*>(&widget);
  return grd && lista ? std::make_unique<AdattaLista>(*grd, *lista) : nullptr;
}

}  // namespace lokera
