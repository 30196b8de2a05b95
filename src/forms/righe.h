#pragma once

#include <QByteArray>
#include <QString>

#include <deque>
#include <memory>
#include <vector>

namespace lokera {

/// Rows of text in little room: each row is its cells in UTF-8, separated by tabs, in blocks that are never
/// moved. A tab inside a value is kept as a blank. What `riga` and `cella` return holds until the next
/// change.
class Righe {
 public:
  int conta() const { return static_cast<int>(righe_.size()); }
  void svuota();
  void aggiungi(QByteArrayView riga);
  void togli(int riga);
  void sostituisci(int riga, QByteArrayView testo);
  QByteArrayView riga(int riga) const;
  QByteArrayView cella(int riga, int colonna) const;  ///< empty when the row has fewer cells
  /// Row i is then the one that was `ordine[i]`.
  void riordina(const std::vector<int>& ordine);
  void imposta_cella(int riga, int colonna, QByteArrayView testo);

  /// All memory that the rows hold.
  qsizetype byte_occupati() const;

 private:
  char* deposita(QByteArrayView testo);
  char* nuovo_posto(quint32 lunghezza);
  void ricompatta();

  std::deque<char*> righe_;  ///< each at the length of its text, which follows
  std::vector<std::unique_ptr<char[]>> blocchi_;
  char* libero_ = nullptr;
  qsizetype resto_ = 0;
  qsizetype byte_blocchi_ = 0;
  qsizetype byte_persi_ = 0;  ///< in the blocks, of rows that were removed or replaced
};

}  // namespace lokera
