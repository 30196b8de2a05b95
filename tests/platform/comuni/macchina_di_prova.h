#pragma once

#include <QTemporaryDir>

#include <memory>
#include <optional>

#include "platform/machine.h"
#include "platform/polled_wait.h"

namespace lokera {

/// A machine with a person at it and a device at its serial port 1. The tests of this folder run on the
/// virtual machine and on the real one.
class MacchinaDiProva {
 public:
  virtual ~MacchinaDiProva() = default;
  virtual Machine macchina() = 0;

  /// What the person does with the next boxes: Yes or OK, or the other button.
  virtual void risponde(bool acconsente) = 0;
  virtual void scrive(const std::optional<QString>& testo) = 0;  ///< nothing: cancels
  virtual void sceglie(const std::optional<QString>& file) = 0;
  virtual void sostituisce(bool si) = 0;  ///< at the question behind the choice before it

  virtual void manda(const QByteArray& dati) = 0;  ///< the device
  virtual void stacca() = 0;

  virtual bool clessidra() const = 0;
  /// Pages of a file that was printed; 0 when it isn't there.
  virtual int pagine(const QString& file) const = 0;
  /// What stands in a saved book, "A1" by its number of row and column; nothing for a cell without anything.
  virtual QString cella(const QString& file, int riga, int colonna) const = 0;

  QString file(const QString& nome) const { return cartella_.filePath(nome); }

 private:
  QTemporaryDir cartella_;
};

/// Each of the two programs has its own.
std::unique_ptr<MacchinaDiProva> crea_macchina_di_prova();

}  // namespace lokera
