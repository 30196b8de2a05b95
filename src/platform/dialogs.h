#pragma once

#include <QString>

#include <optional>

namespace lokera {

enum class Icona { nessuna, informazione, domanda, esclamazione, critica };
enum class Bottoni { ok, ok_annulla, si_no };
enum class Risposta { ok, annulla, si, no };

/// What a message box shows.
struct Messaggio {
  QString testo;   ///< as it stands, never markup
  QString titolo;  ///< the program's name when empty
  Icona icona = Icona::nessuna;
  Bottoni bottoni = Bottoni::ok;
  bool secondo_bottone = false;  ///< the default button is the second one, not the first

  bool operator==(const Messaggio&) const = default;
};

/// Yes and No, No the default button.
inline Messaggio domanda(const QString& testo, const QString& titolo = {}) {
  return {testo, titolo, Icona::domanda, Bottoni::si_no, true};
}

/// Modal boxes. Timers and sockets go on while one is open; only the caller stands still.
class MessageBox {
 public:
  virtual ~MessageBox() = default;
  /// The button that was pressed. A box that is closed without one was answered with its last: OK, Cancel
  /// or No.
  virtual Risposta apri(const Messaggio& messaggio) = 0;

  /// A plain box with an OK button. `titolo` may be empty.
  void mostra(const QString& testo, const QString& titolo = {}) { apri({testo, titolo}); }
  /// `domanda`; true for Yes.
  bool chiedi(const QString& testo, const QString& titolo = {}) {
    return apri(domanda(testo, titolo)) == Risposta::si;
  }
};

/// One line that the person writes. Modal, like a message box.
class InputBox {
 public:
  virtual ~InputBox() = default;
  /// `iniziale` stands in the field, selected; `testo` may have several lines. Nothing when the box was
  /// cancelled, which an empty answer is not.
  virtual std::optional<QString> chiedi(const QString& testo, const QString& titolo = {},
                                        const QString& iniziale = {}) = 0;
};

}  // namespace lokera
