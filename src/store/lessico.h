#pragma once

#include <QStringView>

#include <vector>

namespace lokera {

/// The pieces of a statement. Text literals keep their quotes, dates their # signs, names their brackets; a
/// literal that is not closed runs to the end. A comment is blank space.
enum class TipoLessema { spazio, parola, numero, testo, data, nome, segno };

struct Lessema {
  TipoLessema tipo;
  QStringView testo;

  bool e_segno(char16_t c) const { return tipo == TipoLessema::segno && testo[0] == QChar(c); }
  bool e_parola(QStringView p) const {
    return tipo == TipoLessema::parola && testo.compare(p, Qt::CaseInsensitive) == 0;
  }
};

/// Every character of `sql` is in exactly one piece. The pieces point into `sql`.
std::vector<Lessema> scomponi(QStringView sql);

}  // namespace lokera
