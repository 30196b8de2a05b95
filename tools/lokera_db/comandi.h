#pragma once

#include <QString>
#include <QStringList>
#include <QTextStream>

namespace lokera {

/// Exit states of the program.
enum class CodiceUscita { riuscito = 0, fallito = 1, uso_errato = 2 };

/// Runs the command named first among the arguments (without the program's name).
CodiceUscita esegui_comando(const QStringList& argomenti, QTextStream& uscita, QTextStream& errori);

}  // namespace lokera
