#include "forms/ridimensiona.h"

#include <gtest/gtest.h>

namespace lokera {
namespace {

using namespace Qt::StringLiterals;

using Classe = ClasseControllo;

constexpr double larghezza = 9600;
constexpr double altezza = 7200;

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

TEST(Ridimensiona, EachClassChangesItsOwnMeasuresAndNoresizeNone) {
  const QString no = u" NoResize "_s;
  struct Caso {
    Geometria g;  ///< at 100, 200, of 300 x 400
    double left, width, height;
  };
  const auto di = [](Classe classe, bool multi_line = false, const QString& tag = {},
                     const QString& sopra = {}) {
    return Geometria{classe, multi_line, tag, sopra, 100, 200, 300, 400};
  };
  const Caso casi[] = {{di(Classe::altro), 200, 600, 600},
                       {di(Classe::mask_ed_box), 200, 300, 400},
                       {di(Classe::ss_ole_db_combo), 200, 600, 400},
                       {di(Classe::label), 200, 600, 400},
                       {di(Classe::command_button), 200, 600, 400},
                       {di(Classe::text_box), 200, 600, 400},
                       {di(Classe::text_box, true), 200, 600, 600},
                       {di(Classe::altro, false, no, no), 100, 300, 400},
                       {di(Classe::altro, false, no), 200, 300, 400},
                       {di(Classe::altro, false, {}, no), 200, 600, 600}};
  for (int i = 0; const Caso& c : casi) {
    GeometriaFinestra finestra{0, 0, larghezza, altezza};
    std::vector<Geometria> g{c.g};
    ridimensiona_form(finestra, g, 2 * larghezza, 10800);
    EXPECT_EQ(g[0].left, c.left) << "case " << i;
    EXPECT_EQ(g[0].top, c.left == 200 ? 300 : 200) << "case " << i;
    EXPECT_EQ(g[0].width, c.width) << "case " << i;
    EXPECT_EQ(g[0].height, c.height) << "case " << i++;
  }
}

TEST(Ridimensiona, AParkedControlStaysOffTheWindow) {
  GeometriaFinestra finestra{0, 0, 640, 480};
  std::vector<Geometria> controlli{{Classe::altro, false, {}, {}, -4900, 0, 10, 10}};
  ridimensiona_form(finestra, controlli, 1280, 960, 5000);
  EXPECT_DOUBLE_EQ(controlli[0].left, -4800);
}

}  // namespace
}  // namespace lokera
