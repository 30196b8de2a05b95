#pragma once

#include <QString>

namespace lokera {

/// What else the program asks of the computer it runs on.
class Desktop {
 public:
  virtual ~Desktop() = default;
  /// Opens the page in the default browser. A failure is silent.
  virtual void apri_pagina(const QString& indirizzo) = 0;
  /// Opens the file with the desktop's own program for its kind; false when none could be started.
  virtual bool apri_file(const QString& file) = 0;
  virtual void svuota_appunti() = 0;  ///< clears the system clipboard
  /// A small notice that stays until it is taken away and that nobody has to answer; a second one takes the
  /// first one's place. It can be shown before any window is. Drawn when the event loop next runs.
  virtual void mostra_avviso(const QString& testo) = 0;
  virtual void togli_avviso() = 0;
};

/// The end of the program.
class Program {
 public:
  virtual ~Program() = default;
  /// Ends the program at once. In a test it returns, so the caller must return too, and nothing of the
  /// program may run after that.
  virtual void fine() = 0;
};

}  // namespace lokera
