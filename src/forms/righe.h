#pragma once

#include <QByteArray>
#include <QString>

#include <memory>
#include <vector>

namespace lokera {

/// Rows of text in little room: each row is its cells in UTF-8, separated by tabs, in blocks that are never moved.
/// A tab inside a value is kept as a blank.
class Righe {
 public:
  int conta() const { return static_cast<int>(righe_.size()); }
  void svuota();
  void aggiungi(QByteArrayView riga);
  void togli(int riga);
  void sostituisci(int riga, QByteArrayView testo);
  QByteArrayView riga(int riga) const;
  QByteArrayView cella(int riga, int colonna) const;  ///< empty when the row has fewer cells
  void imposta_cella(int riga, int colonna, QByteArrayView testo);

  /// All memory that the rows hold.
  qsizetype byte_occupati() const;

 private:
  struct Posto {
    const char* testo;
    quint32 lunghezza;
  };
  QByteArrayView deposita(QByteArrayView testo);

  std::vector<Posto> righe_;
  std::vector<std::unique_ptr<char[]>> blocchi_;
  qsizetype byte_blocchi_ = 0;
  char* libero_ = nullptr;
  qsizetype resto_ = 0;
};

}  // namespace lokera
