#pragma once

#include <QLabel>

#include <memory>

#include "platform/desktop.h"

namespace lokera {

class QtDesktop : public Desktop {
 public:
  void apri_pagina(const QString& indirizzo) override;
  bool apri_file(const QString& file) override;
  void svuota_appunti() override;
  void mostra_avviso(const QString& testo) override;
  void togli_avviso() override;

 private:
  std::unique_ptr<QLabel> avviso_;
};

/// Ends the process where it stands. Leaving the application's loop would not do: waits run loops of their
/// own, and handlers would go on running until the last of them has returned. Every change of the database is
/// committed as it happens and the lock of the one instance outlives no process, so there is nothing to undo.
class QtProgram : public Program {
 public:
  [[noreturn]] void fine() override;
};

}  // namespace lokera
