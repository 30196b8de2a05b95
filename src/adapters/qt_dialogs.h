#pragma once

#include "platform/dialogs.h"

namespace lokera {

/// Boxes over the active window. Text is shown as it stands, never taken for markup.
class QtMessageBox : public MessageBox {
 public:
  void mostra(const QString& testo, const QString& titolo) override;
  bool chiedi(const QString& testo, const QString& titolo) override;
};

}  // namespace lokera
