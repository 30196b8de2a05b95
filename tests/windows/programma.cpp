#include <QApplication>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

// Widgets need the application before any of them.
int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  QApplication::setStyle(u"Fusion"_s);
  const QApplication applicazione(argc, argv);
  return RUN_ALL_TESTS();
}
