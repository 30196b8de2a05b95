#pragma once

#include <QString>

#include <functional>
#include <vector>

#include "platform/letterali.h"

namespace lokera {

/// What the piece of a statement between two apostrophes is taken for.
enum class StatoPezzo : char {
  fuori = 'O',       ///< outside of a literal, one opens at its end
  apre_lista = 'I',  ///< likewise, and the literal is the first of a list
  virgola = 'K',     ///< the comma between two literals of a list
  testo = 'S',       ///< text of a literal
};

struct PezzoSql {
  QString testo;
  StatoPezzo stato;
  QString operatore;  ///< "=", "LIKE", "IN" or empty
};

/// The statement cut at its apostrophes, each piece with what it is taken for. It is told from the shape of
/// the pieces alone, since the statement's values may hold apostrophes themselves.
std::vector<PezzoSql> classifica(const QString& statement);

/// A piece with blanks around the comparison that it ends in. `prima`, when given, rewrites the column.
QString normalizza(const PezzoSql& pezzo, const std::function<QString(const QString&)>& prima = {});

/// The pieces put together again, each apostrophe that is text written as `nel_testo`.
QString ricomponi(const std::vector<PezzoSql>& pezzi, const QString& nel_testo = u"''"_s);

/// All of the above. The statement should be in lower case.
QString ripara_apici(const QString& statement);

}  // namespace lokera
