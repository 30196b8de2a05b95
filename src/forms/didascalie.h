#pragma once

#include <memory>
#include <span>
#include <vector>

#include "forms/controlli.h"

namespace lokera {

/// A label that never changes but by translation.
struct Didascalia {
  QStringView nome;
  QStringView testo;
};

/// The fixed labels of a window, made from one table. What stands where, the drawing says.
class Didascalie {
 public:
  Didascalie(Finestra& finestra, std::span<const Didascalia> tabella);

 private:
  std::vector<std::unique_ptr<Label>> etichette_;
};

}  // namespace lokera
