#include "windows/adattatori.h"
#include "windows/lista.h"

namespace lokera {

namespace {

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
  // A list alone in its window is what the window is called.
  void titolo_cambiato() override {
    if (widget() && c_.Caption().trimmed().isEmpty())
      w_.tabella().setAccessibleName(c_.finestra().Caption().trimmed());
  }

 protected:
  void mostra() override {
    w_.titolo(c_.Caption().trimmed());
    titolo_cambiato();
    w_.tabella().viewport()->update();
  }
};

}  // namespace

std::unique_ptr<Adattatore> adatta_lista(SSOleDBGrid& grd, QWidget& widget) {
  return adatta_a<AdattaLista, Lista>(grd, widget);
}

}  // namespace lokera
