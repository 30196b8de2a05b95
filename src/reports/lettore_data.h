#pragma once

#include <QByteArray>

#include <optional>

namespace lokera {

/// A line of DATA.TXT, without its end; its bytes are good until the reader is asked for the next.
struct RigaData {
  qint64 numero;  ///< counted from 1
  QByteArrayView testo;
  bool movimento;  ///< whether a cabinet may have written it: 37 to 1024 characters, all printable
};

/// Cuts what a memory card's file holds into lines, portion by portion. CR, LF or both end a line. Of a line
/// that goes on in the next portion no more is kept than a cabinet could have written.
class LettoreData {
 public:
  static constexpr qsizetype caratteri_minimi = 37;
  static constexpr qsizetype caratteri_massimi = 1024;

  /// Takes the next portion. It must stay where it is until all its lines are taken.
  void porzione(QByteArrayView dati);
  /// The next line that has its end; none when the portion is used up. Empty lines only count.
  std::optional<RigaData> prossima();
  /// After the last portion: the line that has no end, if there is one.
  std::optional<RigaData> ultima();

 private:
  qsizetype cerca(char fine) const;
  void trattieni(QByteArrayView parte);
  std::optional<RigaData> chiudi(QByteArrayView testo);

  QByteArrayView dati_;
  qsizetype da_ = 0;
  qsizetype lf_ = 0, cr_ = 0;  ///< where the next of each stands, at `da_` or behind it
  bool dopo_cr_ = false;
  qint64 numero_ = 0;
  QByteArray sospesa_;  ///< a line's beginning in earlier portions
  QByteArray intera_;
};

}  // namespace lokera
