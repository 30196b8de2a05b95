#include "forms/ridimensiona.h"

#include <gtest/gtest.h>

namespace lokera {
namespace {

using namespace Qt::StringLiterals;

using Classe = ClasseControllo;

constexpr double larghezza = 9600;
constexpr double altezza = 7200;

Geometria stirato(Geometria c, double larghezza_schermo = 19200, double altezza_schermo = 10800) {
  GeometriaFinestra finestra{0, 0, larghezza, altezza};
  std::vector<Geometria> controlli{std::move(c)};
  ridimensiona_form(finestra, controlli, larghezza_schermo, altezza_schermo);
  return controlli.front();
}

TEST(Ridimensiona, OnlyATallerScreenStretchesAndEveryWindowIsCentred) {
  struct Caso {
    double larghezza, altezza;
    bool stira;
  };
  const Caso casi[] = {{larghezza, 7271, false}, {larghezza / 2, 7272, true}, {2 * larghezza, 3600, false}};
  for (const Caso& c : casi) {
    GeometriaFinestra finestra{10, 10, larghezza, altezza};
    std::vector<Geometria> controlli;
    EXPECT_EQ(ridimensiona_form(finestra, controlli, c.larghezza, c.altezza), c.stira)
        << c.larghezza << 'x' << c.altezza;
    EXPECT_DOUBLE_EQ(finestra.left, c.larghezza / 2 - larghezza / 2);
    EXPECT_DOUBLE_EQ(finestra.top, c.altezza / 2 - altezza / 2);
  }
}

TEST(Ridimensiona, EachClassChangesItsOwnMeasures) {
  struct Caso {
    Classe classe;
    bool multi_line, larghezza, altezza;
  };
  const Caso casi[] = {{Classe::altro, false, true, true},
                       {Classe::mask_ed_box, false, false, false},
                       {Classe::ss_ole_db_combo, false, true, false},
                       {Classe::label, false, true, false},
                       {Classe::command_button, false, true, false},
                       {Classe::text_box, false, true, false},
                       {Classe::text_box, true, true, true}};
  for (const Caso& c : casi) {
    const Geometria g = stirato({c.classe, c.multi_line, {}, {}, 100, 200, 300, 400});
    EXPECT_DOUBLE_EQ(g.left, 200);
    EXPECT_DOUBLE_EQ(g.top, 300);
    EXPECT_DOUBLE_EQ(g.width, c.larghezza ? 600 : 300) << static_cast<int>(c.classe);
    EXPECT_DOUBLE_EQ(g.height, c.altezza ? 600 : 400) << static_cast<int>(c.classe);
  }
}

TEST(Ridimensiona, NoresizeKeepsTheSizeAndInsideSuchAContainerThePlaceToo) {
  const QString no = u" NoResize "_s;
  const Geometria fermo = stirato({Classe::altro, false, no, no, 100, 200, 300, 400});
  EXPECT_DOUBLE_EQ(fermo.left, 100);
  EXPECT_DOUBLE_EQ(fermo.width, 300);
  const Geometria spostato = stirato({Classe::altro, false, no, {}, 100, 200, 300, 400});
  EXPECT_DOUBLE_EQ(spostato.left, 200);
  EXPECT_DOUBLE_EQ(spostato.height, 400);
  EXPECT_DOUBLE_EQ(stirato({Classe::altro, false, {}, no, 100, 200, 300, 400}).left, 200);
}

TEST(Ridimensiona, AParkedControlStaysOffTheWindow) {
  GeometriaFinestra finestra{0, 0, 640, 480};
  std::vector<Geometria> controlli{{Classe::altro, false, {}, {}, -4900, 0, 10, 10}};
  ridimensiona_form(finestra, controlli, 1280, 960, 5000);
  EXPECT_DOUBLE_EQ(controlli[0].left, -4800);
}

}  // namespace
}  // namespace lokera
