#pragma once

#include "platform/dialogs.h"

namespace lokera {

/// Boxes over the active window. Text is shown as it stands, never taken for markup.
class QtMessageBox : public MessageBox {
 public:
  Risposta apri(const Messaggio& messaggio) override;
};

class QtInputBox : public InputBox {
 public:
  std::optional<QString> chiedi(const QString& testo, const QString& titolo,
                                const QString& iniziale) override;
};

}  // namespace lokera
