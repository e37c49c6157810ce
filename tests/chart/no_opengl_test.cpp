#include <gtest/gtest.h>

#include <cstdlib>

#include "orvalix/chart/chart_view_3d.h"
#include "support/caught_error.h"

namespace {

using orvalix::test::Catch;
using orvalix::test::CaughtError;

/// Runs in a process of its own: the vendors of EGL are looked for once in a process.
[[noreturn]] void DrawWithoutOpenGL() {
  setenv("__EGL_VENDOR_LIBRARY_FILENAMES", "/nonexistent/vendor.json", 1);
  CWnd window;
  window.CreateOffscreen(10, 10);
  const CaughtError caught = Catch([&] { CChartView3D view(&window); });
  std::cerr << caught << "\n";
  std::exit(caught == CaughtError{18, 17, "InitContext"} ? 0 : 1);
}

TEST(NoOpenGLDeathTest, IsAClearError) {
  ::testing::FLAGS_gtest_death_test_style = "threadsafe";
  EXPECT_EXIT(DrawWithoutOpenGL(), ::testing::ExitedWithCode(0), "type 18, class 17");
}

}  // namespace
