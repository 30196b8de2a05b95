#include "forms/ridimensiona.h"

namespace lokera {

using namespace Qt::StringLiterals;

namespace {

/// Screen to window. Single precision by way of the percentage, as the threshold was always computed.
float rapporto(double schermo, double finestra) {
  const auto percento = static_cast<float>((schermo - finestra) / finestra * 100);
  return (percento + 100) / 100;
}

bool noresize(const QString& tag) {
  return tag.trimmed().toLower() == u"noresize"_s;
}

bool tiene_altezza(const Geometria& c) {
  switch (c.classe) {
    case ClasseControllo::ss_ole_db_combo:
    case ClasseControllo::combo_box:
    case ClasseControllo::label:
    case ClasseControllo::h_scroll_bar:
    case ClasseControllo::command_button:
      return true;
    case ClasseControllo::text_box:
      return !c.multi_line;
    default:
      return false;
  }
}

void sposta(Geometria& c, double rw, double rh, double parcheggio) {
  if (noresize(c.tag) && noresize(c.tag_contenitore)) return;
  c.left = c.left >= 0 ? c.left * rw : (c.left + parcheggio) * rw - parcheggio;
  c.top *= rh;
}

void stira(Geometria& c, double rw, double rh) {
  if (c.classe == ClasseControllo::mask_ed_box || noresize(c.tag)) return;
  if (!tiene_altezza(c)) c.height *= rh;
  c.width *= rw;
}

}  // namespace

void centra_form(GeometriaFinestra& finestra, double larghezza_schermo, double altezza_schermo) {
  finestra.left = larghezza_schermo / 2 - finestra.width / 2;
  finestra.top = altezza_schermo / 2 - finestra.height / 2;
}

bool ridimensiona_form(GeometriaFinestra& finestra, std::vector<Geometria>& controlli,
                       double larghezza_schermo, double altezza_schermo, double parcheggio) {
  if (finestra.width <= 0 || finestra.height <= 0) return false;
  const float rw = rapporto(larghezza_schermo, finestra.width);
  const float rh = rapporto(altezza_schermo, finestra.height);
  centra_form(finestra, larghezza_schermo, altezza_schermo);
  if (rh < 1.01F) return false;
  for (Geometria& c : controlli) {
    sposta(c, rw, rh, parcheggio);
    stira(c, rw, rh);
  }
  return true;
}

}  // namespace lokera
