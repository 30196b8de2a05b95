#pragma once

#include <QString>

#include <optional>

namespace lokera {

/// Whether a person sits there: standard input and standard error are a terminal.
bool a_terminale();

/// One line of standard input, without its end. None at the end of the input, or when the person breaks off
/// (Ctrl-C) while a prompt waits.
std::optional<QString> leggi_riga();

/// The question on standard error, the answer from standard input. A secret one doesn't show while it is
/// typed; the terminal is as before when this returns.
std::optional<QString> domanda(const QString& testo, bool segreta = false);

}  // namespace lokera
