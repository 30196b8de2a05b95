#pragma once

#include <QString>

#include <utility>

namespace lokera {

/// What kind of thing went wrong, for those who act on it.
enum class ClasseErrore {
  nessuno,   ///< a success
  bloccato,  ///< another console holds the lock; the same again may succeed later
  schema,    ///< a table or a column is missing: the file is older than the program
  pieno,     ///< no room on the disk
  perduto,   ///< the file can't be reached, or is damaged
  diritti,   ///< the right to write is missing
  altro,
};

/// What went wrong in the store. A value, never thrown: the caller tests it, shows it or skips it.
struct [[nodiscard]] Errore {
  int numero = 0;       ///< 0 for success, otherwise the engine's own number
  QString descrizione;  ///< empty for success

  ClasseErrore classe = numero == 0 ? ClasseErrore::nessuno : ClasseErrore::altro;

  bool fallito() const { return numero != 0; }
};

/// A value, or why there is none.
template <class T>
class [[nodiscard]] Esito {
 public:
  Esito(T valore) : valore_(std::move(valore)) {}                             // NOLINT: returned as it is
  Esito(Errore errore) : errore_(std::move(errore)) { Q_ASSERT(fallito()); }  // NOLINT: likewise

  bool fallito() const { return errore_.fallito(); }
  /// A success when there is a value.
  const Errore& errore() const { return errore_; }
  /// The default of its type after a failure.
  const T& valore() const { return valore_; }
  const T& operator*() const { return valore_; }
  const T* operator->() const { return &valore_; }
  T&& prendi() { return std::move(valore_); }

 private:
  T valore_{};
  Errore errore_;
};

}  // namespace lokera
