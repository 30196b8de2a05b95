#pragma once

#include <QTimer>

#include <functional>

#include "app/avvio.h"

namespace lokera {

class frm_param_lokere;

/// What a person does with cabinets fresh from their box, at a console without any: finds them on the network
/// and registers one after the other. Boxes are read and closed.
class StradaDemo {
 public:
  /// `scatta`: takes a picture of a window, with what it shows.
  using Scatta = std::function<void(QWidget& finestra, const QString& motivo)>;
  StradaDemo(Avvio& avvio, Scatta scatta);

  /// Runs the loop; the console goes on by itself after it.
  void percorri();

 private:
  void leggi_scatola();
  bool registra(frm_param_lokere& f, int riga);

  Avvio& avvio_;
  Scatta scatta_;
  QTimer scatole_;
};

}  // namespace lokera
