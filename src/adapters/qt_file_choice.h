#pragma once

#include <utility>

#include "platform/file_choice.h"

namespace lokera {

class QtFileChoice : public FileChoice {
 public:
  /// `cartella`: where the first choice begins.
  explicit QtFileChoice(QString cartella = {}) : ultima_(std::move(cartella)) {}
  std::optional<QString> apri(const SceltaFile& scelta) override;
  std::optional<QString> salva(const SceltaFile& scelta) override;

 private:
  QString ultima_;  ///< folder of the last choice
};

}  // namespace lokera
