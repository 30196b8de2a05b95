#pragma once

#include "platform/file_choice.h"

namespace lokera {

class QtFileChoice : public FileChoice {
 public:
  std::optional<QString> apri(const SceltaFile& scelta) override;
  std::optional<QString> salva(const SceltaFile& scelta) override;
};

}  // namespace lokera
