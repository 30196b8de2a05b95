#include <QApplication>

#include <gtest/gtest.h>

#include "app/avvio.h"

// Widgets need the application before any of them.
int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  const QApplication applicazione(argc, argv);
  lokera::prepara_aspetto();
  return RUN_ALL_TESTS();
}
