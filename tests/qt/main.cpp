#include <gtest/gtest.h>

#include <QtWidgets/QApplication>

int main(int argc, char** argv) {
  ::testing::InitGoogleTest(&argc, argv);
  // Listing tests takes no display.
  if (::testing::GTEST_FLAG(list_tests)) return RUN_ALL_TESTS();
  QApplication application(argc, argv);
  QApplication::setApplicationDisplayName("ORVALIX test");
  return RUN_ALL_TESTS();
}
