#pragma once

#include <QList>

#include "platform/dialogs.h"

namespace lokera::simulazione {

/// An input box that nobody sees: it is written down and answered at once.
class VirtualInputBox : public InputBox {
 public:
  struct Domanda {
    QString testo;
    QString titolo;
    QString iniziale;
    bool operator==(const Domanda&) const = default;
  };

  std::optional<QString> chiedi(const QString& testo, const QString& titolo,
                                const QString& iniziale) override {
    fatte.append({testo, titolo, iniziale});
    return risposte.isEmpty() ? std::nullopt : risposte.takeFirst();
  }

  QList<Domanda> fatte;
  QList<std::optional<QString>> risposte;  ///< for the boxes to come; cancelled when there is none left
};

}  // namespace lokera::simulazione
