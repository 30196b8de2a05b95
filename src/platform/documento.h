#pragma once

#include <QList>
#include <QString>

#include "platform/letterali.h"

namespace lokera {

/// All lengths on paper are twips: 1440 to the inch, 567 to the centimetre.
constexpr int twip_pollice = 1440;
constexpr int twip_punto = 20;
constexpr int twip_centimetro = 567;

struct Carattere {
  QString nome = u"Times New Roman"_s;
  double dimensione = 8;  ///< in points
  bool grassetto = false;

  bool operator==(const Carattere&) const = default;
};

/// A mark on a page. A text stands on one line with its upper left corner at `x` and `y`; a line goes from
/// there to `x2` and `y2`, which are a box's opposite corner.
struct SegnoStampa {
  enum class Tipo { testo, linea, riquadro };

  Tipo tipo = Tipo::testo;
  int x = 0, y = 0;
  int x2 = 0, y2 = 0;
  QString testo;
  qsizetype carattere = 0;  ///< counts among the document's from 0
};

using PaginaStampa = QList<SegnoStampa>;

/// What is to be printed, page by page. Places count from the upper left corner of the part of the paper that
/// can be printed on. Nothing reaches a printer before the whole is handed to it, so one that is given up
/// needs nobody's leave.
class Documento {
 public:
  explicit Documento(QString titolo) : titolo_(std::move(titolo)) {}

  /// For all that follows, next pages included.
  void carattere(const Carattere& nuovo);
  const Carattere& carattere() const { return caratteri_.last(); }

  void testo(int x, int y, const QString& testo);
  void linea(int x1, int y1, int x2, int y2);
  void riquadro(int x, int y, int larghezza, int altezza);
  /// The first page is there from the beginning.
  void NewPage() { pagine_.append(PaginaStampa()); }

  const QString& titolo() const { return titolo_; }
  const QList<PaginaStampa>& pagine() const { return pagine_; }
  const Carattere& carattere(const SegnoStampa& segno) const { return caratteri_[segno.carattere]; }
  /// The texts of all pages, in the order in which they were put there.
  QStringList testi() const;

 private:
  void segna(SegnoStampa segno);

  QString titolo_;
  QList<Carattere> caratteri_{Carattere()};
  QList<PaginaStampa> pagine_{PaginaStampa()};
};

}  // namespace lokera
