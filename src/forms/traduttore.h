#pragma once

#include <QString>

#include <functional>
#include <memory>

#include "store/database.h"

namespace lokera {

class Finestra;

/// Turns the program's Italian wording into the second language of the installation.
class Traduttore {
 public:
  explicit Traduttore(Database& db);
  ~Traduttore();
  Traduttore(const Traduttore&) = delete;
  Traduttore& operator=(const Traduttore&) = delete;

  /// The text in the language of the interface, its surrounding blanks kept. A text that the table lacks is
  /// added to it with a blank translation and stays Italian, as it does when the table can't be read.
  QString traduci(const QString& testo);

  /// The failure that keeps the table from being read now, so that `traduci` leaves what it has not read
  /// before in Italian: for who compares texts with those of the file, and must not take one language for the
  /// other.
  Errore leggibile();

  /// Captions of command buttons, labels, menu entries, of lists and their columns. Other controls keep their
  /// text.
  void traduci_form(Finestra& finestra);

 private:
  struct Memoria;
  /// Whether there is something to translate, with the table as it stands now.
  bool pronto();
  /// A caption may be in the second language already, when its window is translated once more; such a text is
  /// none that the table lacks.
  QString traduci(const QString& testo, bool forse_gia_tradotto);

  Database& db_;
  std::unique_ptr<Memoria> memoria_;
};

}  // namespace lokera
