#pragma once

#include <QString>

namespace lokera {

/// Modal boxes. Timers and sockets go on while one is open; only the caller stands still.
class MessageBox {
 public:
  virtual ~MessageBox() = default;
  /// A plain box with an OK button. `titolo` may be empty.
  virtual void mostra(const QString& testo, const QString& titolo = {}) = 0;
  /// Yes and No, No the default button. True for Yes.
  virtual bool chiedi(const QString& testo, const QString& titolo = {}) = 0;
};

}  // namespace lokera
