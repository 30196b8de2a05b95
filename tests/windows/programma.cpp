#include <QApplication>

#include <gtest/gtest.h>

// Widgets need the application before any of them.
int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  QApplication::setStyle(QStringLiteral("Fusion"));
  const QApplication applicazione(argc, argv);
  return RUN_ALL_TESTS();
}
