#include <gtest/gtest.h>

#include <array>
#include <vector>

#include "chart/view_fixture.h"
#include "orvalix/chart/header_3d.h"
#include "orvalix/render/gl_api_internal.h"
#include "support/feedback.h"

namespace {

using namespace orvalix::test;
using Kind = FeedbackPrimitive::Kind;

const point3Dtype kZero{0, 0, 0, 0};
const point3Dtype kTen{10, 10, 10, 0};

/// A bar of colour `fill` over the whole width and height of a scale from 0 to 10, from y to y + 2.
CChartObj3D* NewWideBar(CChart3D& chart, CTransform3D* transform, const RGBDType& fill, double y) {
  const std::array<double, 1> place{0};
  const std::array<double, 1> height{10};
  CChartObj3D* bar = chart.NewChartObj(transform);
  bar->BarChart25D(place.data(), height.data(), 0.0, y, 1, 10.0, 2.0, fill, fill, 0, 0, 0);
  bar->SetColorMode(0);
  bar->SetOutlineMode(0);
  return bar;
}

// Colours of a bar in the chart's colouring by value: red below the middle, blue above. The scale
// takes the middle half of 100 pixels, so that z = 2 lies at pixel 35 and z = 8 at 65.
TEST(ChartFrames, OnlyColorMode2ColorsByValue) {
  ViewOn target(100, 100);
  CTransform3D* transform = nullptr;
  CChart3D* chart = target.view->NewChart3D(kZero, kTen, &transform);
  CChartObj3D* bar = NewWideBar(*chart, transform, SetRGBD(0, 1, 0, 1), 0.0);
  const std::array<RGBDType, 2> colors{SetRGBD(1, 0, 0, 1), SetRGBD(0, 0, 1, 1)};
  chart->SetTextureColorArray(colors.data(), 0.0, 10.0, 2);
  chart->SetTextureMode(2);
  for (const int mode : {0, 1, 2, 3, 2, 1}) {
    SCOPED_TRACE(mode);
    bar->SetColorMode(mode);
    target.view->DrawViewScreen();
    const Pixel low = target.BitmapPixel(50, 35);
    const Pixel high = target.BitmapPixel(50, 65);
    if (mode == 2) {
      EXPECT_EQ(low, kRed);
      EXPECT_EQ(high, kBlue);
    } else {
      EXPECT_EQ(low, high);
    }
    // The light shades lit bars, but adds neither red nor blue to a green one.
    if (mode < 2) {
      EXPECT_EQ(low[0], 0);
      EXPECT_GT(low[1], 0);
      EXPECT_EQ(low[2], 0);
    }
  }
}

TEST(ChartFrames, ATurnedChartDoesNotTurnTheNextOne) {
  ViewOn target(100, 100);
  target.view->EnableBorder(0);
  CTransform3D* transform = nullptr;
  CChart3D* first = target.view->NewChart3D(kZero, kTen, &transform);
  first->SetChartPosition({0, 0, 0.5, 1});
  transform->SetRotate({30, 40, 50, 0});
  NewWideBar(*first, transform, SetRGBD(1, 0, 0, 1), 0.0);
  CChart3D* second = target.view->NewChart3D();
  second->SetChartPosition({0.5, 0, 0.5, 1});
  second->SetBorderColor(SetRGBD(0, 1, 0, 1));
  target.view->DrawViewScreen();
  const auto drawn = OfKind(CaptureFeedback([&] { target.view->DrawViewScreen(); }), Kind::kLine);
  ASSERT_EQ(drawn.size(), 8U);  // a frame each
  // Half a frame's width and height in the viewport from 50 to 100: 0.999 - 2 / (50 - 1) of 25
  // pixels and 0.999 - 2 / (100 - 1) of 50.
  const double dx = (0.999 - 2.0 / 49.0) * 25.0;
  const double dy = (0.999 - 2.0 / 99.0) * 50.0;
  const std::array<std::array<double, 2>, 5> corners{{{75 - dx, 50 + dy},
                                                      {75 + dx, 50 + dy},
                                                      {75 + dx, 50 - dy},
                                                      {75 - dx, 50 - dy},
                                                      {75 - dx, 50 + dy}}};
  for (std::size_t i = 0; i < 4; ++i) {
    const FeedbackPrimitive& line = drawn[4 + i];
    EXPECT_EQ(line.vertices[0].green, 1.0);
    for (std::size_t end = 0; end < 2; ++end) {
      EXPECT_NEAR(line.vertices[end].x, corners[i + end][0], 1e-3) << i;
      EXPECT_NEAR(line.vertices[end].y, corners[i + end][1], 1e-3) << i;
      EXPECT_NEAR(line.vertices[end].z, 0.999, 1e-6) << i;
    }
  }
  // The second chart's light, loaded last, comes from its (0, 1, 1) as it is.
  std::array<float, 4> light{};
  glGetLightfv(GL_LIGHT0, GL_POSITION, light.data());
  EXPECT_EQ(light, (std::array<float, 4>{0, 1, -1, 0}));
}

TEST(ChartFrames, ALaterChartCoversWhatIsNearer) {
  ViewOn target(100, 100);
  CTransform3D* transform = nullptr;
  CChart3D* first = target.view->NewChart3D(kZero, kTen, &transform);
  NewWideBar(*first, transform, SetRGBD(1, 0, 0, 1), 8.0);  // larger y is nearer
  target.view->DrawViewScreen();
  EXPECT_EQ(target.BitmapPixel(50, 50), kRed);
  CChart3D* second = target.view->NewChart3D(kZero, kTen, &transform);
  NewWideBar(*second, transform, SetRGBD(0, 0, 1, 1), 0.0);
  target.view->DrawViewScreen();
  EXPECT_EQ(target.BitmapPixel(50, 50), kBlue);
}

TEST(ChartFrames, PositionsReachTheViewportAtOnceRoundedTowardsZero) {
  ViewOn target(101, 101);
  CChart3D* chart = target.view->NewChart3D();
  target.view->DrawViewScreen();
  chart->SetChartPosition({-0.5, 0.5, 0.25, 0.75});
  GLViewportType viewport{};
  chart->GetChartViewport(viewport);
  EXPECT_EQ(viewport.x, -50);      // of -50.5
  EXPECT_EQ(viewport.y, 50);       // of 50.5
  EXPECT_EQ(viewport.width, 25);   // of 25.25
  EXPECT_EQ(viewport.height, 75);  // of 75.75
}

}  // namespace
