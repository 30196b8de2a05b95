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

  /// Captions of command buttons, labels, menu entries, of lists and their columns. Other controls keep their
  /// text.
  void traduci_form(Finestra& finestra);

 private:
  struct Memoria;
  Database& db_;
  std::unique_ptr<Memoria> memoria_;
};

}  // namespace lokera
