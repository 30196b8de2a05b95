#pragma once

#include <QApplication>

#include "platform/pointer.h"

namespace lokera {

class QtCursor : public Pointer {
 public:
  void attesa() override { QApplication::setOverrideCursor(Qt::WaitCursor); }
  void normale() override { QApplication::restoreOverrideCursor(); }
};

}  // namespace lokera
