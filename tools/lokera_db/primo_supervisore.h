#pragma once

#include <QString>

#include <optional>

#include "store/connection.h"

namespace lokera {

/// Who is the first to log in to a new file; none without a name.
struct PrimoSupervisore {
  QString nome, password;
};

/// Asks a person at a terminal for name and password, the password twice. With a name that was given on the
/// command line only for the password: at a terminal likewise, otherwise the next line of standard input.
/// Without a name and without a terminal there is none.
Esito<PrimoSupervisore> chiedi_supervisore(const std::optional<QString>& nome);

/// Adds the user as the console's own window does, by its rules.
Errore aggiungi_supervisore(Connection& connessione, const PrimoSupervisore& utente);

}  // namespace lokera
