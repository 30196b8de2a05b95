#pragma once

#include <QString>

#include <vector>

namespace lokera {

enum class ClasseControllo {
  altro,
  mask_ed_box,
  ss_ole_db_combo,
  combo_box,
  label,
  h_scroll_bar,
  command_button,
  text_box
};

/// A control's place before and after the stretching. Any unit, the same for all.
struct Geometria {
  ClasseControllo classe = ClasseControllo::altro;
  bool multi_line = false;
  QString tag;
  QString tag_contenitore;  ///< of the control that holds it; empty when the window itself does
  double left = 0, top = 0, width = 0, height = 0;
};

struct GeometriaFinestra {
  double left = 0, top = 0, width = 0, height = 0;
};

/// Centres the window on the screen; all there is to one that the sizing leaves alone.
void centra_form(GeometriaFinestra& finestra, double larghezza_schermo, double altezza_schermo);

/// Centres the window on the screen and, when the screen is at least one per cent taller than the window,
/// stretches its controls by the ratio of screen to window. Returns whether the controls were stretched; the
/// window itself then takes the whole screen. Controls at a negative `left` are parked off the window: they
/// keep their distance from
/// -`parcheggio`, which is 75000 twips, or 5000 where the unit is a pixel.
bool ridimensiona_form(GeometriaFinestra& finestra, std::vector<Geometria>& controlli,
                       double larghezza_schermo, double altezza_schermo, double parcheggio = 75000);

}  // namespace lokera
