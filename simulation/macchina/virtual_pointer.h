#pragma once

#include "platform/pointer.h"

namespace lokera::simulazione {

class VirtualPointer : public Pointer {
 public:
  void attesa() override {
    ++attese;
    ++volte;
  }
  void normale() override { --attese; }

  int attese = 0;  ///< hourglasses that stand
  int volte = 0;   ///< all that there were
};

}  // namespace lokera::simulazione
