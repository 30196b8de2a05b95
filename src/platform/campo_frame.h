#pragma once

#include <QByteArrayView>

#include <algorithm>

namespace lokera {

/// The `larghezza` characters from position `da`, counted from 1; fewer when the frame or line ends before,
/// none when it is too short.
inline QByteArrayView campo_frame(QByteArrayView frame, qsizetype da, qsizetype larghezza) {
  if (da > frame.size() || larghezza <= 0) return {};
  return frame.sliced(da - 1, std::min(larghezza, frame.size() - da + 1));
}

}  // namespace lokera
