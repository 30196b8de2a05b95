#pragma once

#include <QList>
#include <QString>

#include <functional>

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
  qsizetype carattere = 0;  ///< counts among the page's from 0
};

/// One page as its marks. Places count from the upper left corner of the part of the paper that can be
/// printed on.
class PaginaStampa {
 public:
  /// For all that follows on the page.
  void carattere(const Carattere& nuovo);
  const Carattere& carattere() const { return caratteri_.last(); }

  void testo(int x, int y, const QString& testo);
  void linea(int x1, int y1, int x2, int y2);
  void riquadro(int x, int y, int larghezza, int altezza);

  const QList<SegnoStampa>& segni() const { return segni_; }
  const QList<Carattere>& caratteri() const { return caratteri_; }
  /// In the order in which they were put there.
  QStringList testi() const;

 private:
  void segna(SegnoStampa segno);

  QList<Carattere> caratteri_{Carattere()};
  QList<SegnoStampa> segni_;
};

/// What is to be printed. Its pages are made one after the other as the printer comes to them, and none is
/// kept.
struct Documento {
  QString titolo;
  int pagine = 1;
  std::function<PaginaStampa(int numero)> pagina;  ///< counted from 1
  /// Before each page, with how many are done: whether to go on. It may run the event loop. A print that is
  /// given up leaves no paper that wasn't out already, and no file. None: always.
  std::function<bool(int fatte)> continua = {};
};

}  // namespace lokera
