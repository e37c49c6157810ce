#include <gtest/gtest.h>

#include <QtWidgets/QApplication>
#include <cstring>

int main(int argc, char** argv) {
  ::testing::InitGoogleTest(&argc, argv);
  // Listing tests takes no display.
  if (::testing::GTEST_FLAG(list_tests)) return RUN_ALL_TESTS();
  constexpr const char* kScale = "--scale=";
  if (argc > 1 && std::strncmp(argv[1], kScale, std::strlen(kScale)) == 0) {
    qputenv("QT_SCALE_FACTOR", argv[1] + std::strlen(kScale));
  }
  QApplication application(argc, argv);
  QApplication::setApplicationDisplayName("ORVALIX test");
  return RUN_ALL_TESTS();
}
