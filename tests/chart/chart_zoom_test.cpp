#include <gtest/gtest.h>

#include <array>
#include <limits>

#include "chart/view_fixture.h"
#include "orvalix/axes/axes_3d.h"
#include "orvalix/chart/header_3d.h"
#include "orvalix/render/gl_api_internal.h"
#include "support/temporary_file.h"

namespace {

using namespace orvalix::test;

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

/// A chart that shows nothing but a blue bar over its whole scale: the middle half of the view of
/// 100 x 100 pixels, so pixels 25 to 74 both ways.
class ChartZoom : public ::testing::Test {
 protected:
  ChartZoom() : target(100, 100) {
    target.view->EnableBorder(0);
    chart = target.view->NewChart3D({0, 0, 0, 0}, {10, 10, 10, 0}, &transform);
    chart->EnableBorder(0);
    const std::array<double, 1> place{0};
    const std::array<double, 1> height{10};
    const RGBDType blue = SetRGBD(0, 0, 1, 1);
    CChartObj3D* bar = chart->NewChartObj(transform);
    bar->BarChart25D(place.data(), height.data(), 0.0, 0.0, 1, 10.0, 10.0, blue, blue, 0, 0, 0);
    bar->SetColorMode(0);
    bar->SetOutlineMode(0);
  }

  /// The first and the last blue pixel of the middle row, and of the middle column.
  std::array<int, 4> Extent() {
    target.view->DrawViewScreen();
    std::array<int, 4> extent{-1, -1, -1, -1};
    for (int i = 0; i < 100; ++i) {
      if (target.BitmapPixel(i, 50) == kBlue) extent[1] = i;
      if (target.BitmapPixel(50, i) == kBlue) extent[3] = i;
      if (target.BitmapPixel(99 - i, 50) == kBlue) extent[0] = 99 - i;
      if (target.BitmapPixel(50, 99 - i) == kBlue) extent[2] = 99 - i;
    }
    return extent;
  }

  std::array<double, 16> ProjectionNow() {
    target.view->GetOpenGLPntr()->MakeCurrent();
    std::array<double, 16> projection{};
    glGetDoublev(GL_PROJECTION_MATRIX, projection.data());
    return projection;
  }

  ViewOn target;
  CTransform3D* transform = nullptr;
  CChart3D* chart = nullptr;
};

constexpr std::array<int, 4> kAsItIs{25, 74, 25, 74};

TEST_F(ChartZoom, IsOneAboutTheMiddleAtFirst) {
  double factor = 0.0;
  double x = 9.0;
  double y = 9.0;
  chart->GetZoom(factor, x, y);
  EXPECT_EQ(factor, 1.0);
  EXPECT_EQ(x, 0.0);
  EXPECT_EQ(y, 0.0);
  EXPECT_EQ(Extent(), kAsItIs);
}

TEST_F(ChartZoom, MagnifiesAboutAPoint) {
  chart->SetZoom(1.4, 0.0, 0.0);
  // Half of 50 * 1.4 on each side of 50: 15 to 85.
  EXPECT_EQ(Extent(), (std::array<int, 4>{15, 84, 15, 84}));
  chart->SetZoom(0.6, 0.0, 0.0);
  EXPECT_EQ(Extent(), (std::array<int, 4>{35, 64, 35, 64}));
  // 0.2 of the half width, 10 pixels, to the left, and 0.1 upwards; no larger.
  chart->SetZoom(1.0, 0.2, -0.1);
  EXPECT_EQ(Extent(), (std::array<int, 4>{15, 64, 30, 79}));
  double factor = 0.0;
  double x = 0.0;
  double y = 0.0;
  chart->GetZoom(factor, x, y);
  EXPECT_EQ(factor, 1.0);
  EXPECT_EQ(x, 0.2);
  EXPECT_EQ(y, -0.1);
}

TEST_F(ChartZoom, CutsNothingOffInFront) {
  // Turned by 45 degrees, a box of half extents of 0.5 reaches 0.71 into the depth, 2.1 at
  // factor 3.
  transform->SetRotate({0, 0, 45, 0});
  target.view->DrawViewScreen();
  const Pixel shown = target.BitmapPixel(50, 50);
  EXPECT_EQ(shown, kBlue);
  for (const double factor : {3.0, 50.0}) {
    chart->SetZoom(factor, 0.0, 0.0);
    target.view->DrawViewScreen();
    EXPECT_EQ(target.BitmapPixel(50, 50), kBlue);
    EXPECT_EQ(target.BitmapPixel(0, 0), kBlue);
    EXPECT_EQ(target.BitmapPixel(99, 99), kBlue);
  }
}

TEST_F(ChartZoom, IsTheSameWithoutGathering) {
  chart->AutoAxes(transform);
  chart->SetZoom(1.7, 0.3, -0.2);
  target.view->DrawViewScreen();
  std::array<Pixel, 100> gathered{};
  for (int i = 0; i < 100; ++i) gathered[static_cast<std::size_t>(i)] = target.BitmapPixel(i, i);
  target.view->GetOpenGLPntr()->SetGathering(0);
  target.view->DrawViewScreen();
  for (int i = 0; i < 100; ++i) {
    EXPECT_EQ(target.BitmapPixel(i, i), gathered[static_cast<std::size_t>(i)]) << i;
  }
}

TEST_F(ChartZoom, LeavesFrameTitlesAndOtherChartsAlone) {
  chart->EnableBorder(1);
  chart->SetBorderColor(SetRGBD(1, 0, 0, 1));
  chart->SetChartPosition({0.0, 0.0, 1.0, 0.5});
  CTransform3D* otherTransform = nullptr;
  CChart3D* other = target.view->NewChart3D({0, 0, 0, 0}, {1, 1, 1, 0}, &otherTransform);
  other->SetChartPosition({0.0, 0.5, 1.0, 0.5});
  other->SetBorderColor(SetRGBD(0, 1, 0, 1));
  chart->SetZoom(20.0, 0.0, 0.0);
  target.view->DrawViewScreen();
  EXPECT_EQ(target.BitmapPixel(0, 25), kBlue);  // magnified up to the very edge, over the frame
  EXPECT_EQ(target.BitmapPixel(50, 49), kBlue);
  EXPECT_EQ(target.BitmapPixel(50, 75), kWhite);  // the other chart is empty
  EXPECT_EQ(target.BitmapPixel(1, 75), kGreen);
}

TEST_F(ChartZoom, DrawsUnusableNumbersAsOne) {
  for (const auto& [factor, x, y] :
       {std::array{0.0, 0.0, 0.0}, std::array{-2.0, 0.0, 0.0}, std::array{kNaN, 0.0, 0.0},
        std::array{kInfinity, 0.0, 0.0}, std::array{2.0, kNaN, 0.0},
        std::array{2.0, 0.0, kInfinity}, std::array{1e300, 1e300, 0.0}}) {
    chart->SetZoom(factor, x, y);
    EXPECT_EQ(Extent(), kAsItIs) << factor << " " << x << " " << y;
  }
}

TEST_F(ChartZoom, KeepsTheProjectionOfTheProgram) {
  target.view->GetOpenGLPntr()->MakeCurrent();
  glMatrixMode(GL_PROJECTION);
  glScaled(0.5, 0.5, 1.0);
  glMatrixMode(GL_MODELVIEW);
  const std::array<int, 4> half = Extent();
  EXPECT_NEAR(half[0], 37, 1);
  EXPECT_NEAR(half[1], 62, 1);
  chart->SetZoom(2.0, 0.0, 0.0);
  EXPECT_EQ(Extent(), kAsItIs);
  chart->SetZoom(1.0, 0.0, 0.0);
  EXPECT_EQ(Extent(), half);
}

/// Multiplies the projection by a magnification about the middle.
void ScaleProjection(double factor) {
  glMatrixMode(GL_PROJECTION);
  glScaled(factor, factor, 1.0);
  glMatrixMode(GL_MODELVIEW);
}

TEST_F(ChartZoom, IsSetAnewEachTime) {
  const std::array<double, 16> before = ProjectionNow();
  COpenGL& gl = *target.view->GetOpenGLPntr();
  gl.SetMagnification(2.0, 0.5, 0.0);
  gl.SetMagnification(3.0, 0.0, 0.0);
  EXPECT_EQ(ProjectionNow()[0], 3.0 * before[0]);
  EXPECT_EQ(ProjectionNow()[12], before[12]);
  gl.SetMagnification(1.0, 0.0, 0.0);
  EXPECT_EQ(ProjectionNow(), before);
}

TEST_F(ChartZoom, KeepsAProjectionThatIsSetMeanwhile) {
  COpenGL& gl = *target.view->GetOpenGLPntr();
  const std::array<double, 16> before = ProjectionNow();
  gl.SetMagnification(2.0, 0.0, 0.0);
  glMatrixMode(GL_PROJECTION);
  glLoadMatrixd(before.data());
  glMatrixMode(GL_MODELVIEW);
  ScaleProjection(0.5);
  gl.SetMagnification(4.0, 0.0, 0.0);
  EXPECT_EQ(ProjectionNow()[0], 2.0 * before[0]);
  gl.SetMagnification(1.0, 0.0, 0.0);
  EXPECT_EQ(ProjectionNow()[0], 0.5 * before[0]);
}

TEST_F(ChartZoom, IsPickedWhereItIsSeen) {
  chart->SetZoom(2.0, 0.25, 0.0);  // 25 to 74 becomes -25 to 75: drawn from 0 to 74
  EXPECT_EQ(Extent(), (std::array<int, 4>{0, 74, 0, 99}));
  const auto hits = [&](int x, int y) {
    std::array<GLuint, 64> buffer{};
    glSelectBuffer(static_cast<GLsizei>(buffer.size()), buffer.data());
    glRenderMode(GL_SELECT);
    glInitNames();
    glPushName(1);
    const std::array<double, 16> before = ProjectionNow();
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    glScaled(100.0 / 3.0, 100.0 / 3.0, 1.0);  // 3 x 3 pixels
    glTranslated((50.0 - x) / 50.0, (50.0 - y) / 50.0, 0.0);
    glMultMatrixd(before.data());
    glMatrixMode(GL_MODELVIEW);
    target.view->DrawViewScreen();
    glMatrixMode(GL_PROJECTION);
    glLoadMatrixd(before.data());
    glMatrixMode(GL_MODELVIEW);
    return glRenderMode(GL_RENDER);
  };
  EXPECT_EQ(hits(5, 50), 1);
  EXPECT_EQ(hits(70, 90), 1);
  EXPECT_EQ(hits(80, 50), 0);
}

TEST_F(ChartZoom, IsNotSaved) {
  const TemporaryFile before;
  target.view->Save(before.Path());
  chart->SetZoom(2.0, 0.5, 0.5);
  const TemporaryFile after;
  target.view->Save(after.Path());
  EXPECT_EQ(after.Read(), before.Read());
}

}  // namespace
