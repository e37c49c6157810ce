#include <gtest/gtest.h>

#include <cstdlib>

#include "orvalix/orvalix.h"
#include "support/temporary_file.h"

namespace {

using orvalix::test::Bytes;
using orvalix::test::TemporaryFile;

/// Nothing else in this program may have asked for a font before.
TEST(NoFonts, ChartsAreDrawnWithoutText) {
  const std::string nothing =
      "<?xml version=\"1.0\"?><!DOCTYPE fontconfig SYSTEM \"fonts.dtd\"><fontconfig></fontconfig>";
  const TemporaryFile configuration(Bytes(nothing.begin(), nothing.end()));
  ASSERT_EQ(setenv("FONTCONFIG_FILE", configuration.Path(), 1), 0);

  CWnd window;
  window.CreateOffscreen(100, 80);
  CChartView3D view(&window);
  EXPECT_EQ(view.GetOpenGLPntr()->RegisterFont("Arial", 0.2, 400, 0, 128), 0);
  CChart3D* chart = view.NewChart3D();
  chart->SetChartBkColor(SetRGBD(1.0, 0.0, 0.0, 1.0));
  chart->GetHeader()->SetTitle1("Title");
  CTransform3D* transform = chart->NewTransform({0, 0, 0, 0}, {1, 1, 1, 0});
  CAxes3D* axes = chart->AutoAxes(transform);
  axes->SetAxisTitleString(0, "x");
  view.DrawViewScreen();
  EXPECT_EQ(window.GetDC()->GetPixel(50, 10), RGB(255, 0, 0));
  EXPECT_EQ(chart->GetHeader()->GetTitle1Obj()->TextWidth(), 0.0);
  EXPECT_GT(axes->GetAxisLabels(0)->GetNumAxisLabelObjs(), 0);
}

}  // namespace
