#include "orvalix/chart/fresh_area.h"

#include <gtest/gtest.h>

#include <array>
#include <limits>

#include "chart/view_fixture.h"
#include "orvalix/chart/header_3d.h"
#include "orvalix/render/gl_api_internal.h"
#include "support/feedback.h"

// What charts needn't clear because the view has just cleared it.

namespace {

using namespace orvalix::test;
using orvalix::FreshArea;

constexpr RGBDType kGreenBack{0.0, 1.0, 0.0, 1.0};
constexpr RGBDType kRedBack{1.0, 0.0, 0.0, 1.0};
constexpr int kHuge = std::numeric_limits<int>::max();

TEST(FreshArea, IsNothingBetweenFrames) { EXPECT_FALSE(FreshArea().Contains({0, 0, 1, 1})); }

TEST(FreshArea, IsWhatNothingWasDrawnTo) {
  FreshArea fresh({0, 0, 100, 50}, kGreenBack);
  EXPECT_TRUE(fresh.Contains({0, 0, 100, 50}));
  EXPECT_FALSE(fresh.Contains({-1, 0, 10, 10}));
  EXPECT_FALSE(fresh.Contains({0, -1, 10, 10}));
  EXPECT_FALSE(fresh.Contains({91, 0, 10, 10}));
  EXPECT_FALSE(fresh.Contains({0, 41, 10, 10}));
  fresh.Cover({20, 10, 30, 20});
  EXPECT_TRUE(fresh.Contains({0, 0, 20, 50})) << "left of it";
  EXPECT_TRUE(fresh.Contains({50, 0, 50, 50})) << "right of it";
  EXPECT_TRUE(fresh.Contains({0, 0, 100, 10})) << "below";
  EXPECT_TRUE(fresh.Contains({0, 30, 100, 20})) << "above";
  EXPECT_FALSE(fresh.Contains({49, 29, 10, 10})) << "its corner";
  EXPECT_FALSE(fresh.Contains({0, 0, 100, 50})) << "around it";
}

TEST(FreshArea, TakesAnyNumbers) {
  FreshArea fresh({0, 0, 100, 50}, kGreenBack);
  EXPECT_FALSE(fresh.Contains({kHuge, kHuge, kHuge, kHuge}));
  fresh.Cover({kHuge, kHuge, kHuge, kHuge});
  EXPECT_TRUE(fresh.Contains({0, 0, 100, 50}));
  EXPECT_TRUE(fresh.Contains({5, 5, -3, -3})) << "no pixels at all";
}

TEST(FreshArea, IsGoneOnceTooMuchIsCovered) {
  FreshArea fresh({0, 0, 100, 50}, kGreenBack);
  for (int i = 0; i < 64; ++i) fresh.Cover({0, 0, 1, 1});
  EXPECT_TRUE(fresh.Contains({50, 0, 1, 1}));
  fresh.Cover({0, 0, 1, 1});
  EXPECT_FALSE(fresh.Contains({50, 0, 1, 1}));
}

TEST(FreshArea, HasAColor) {
  const FreshArea fresh({0, 0, 100, 50}, kGreenBack);
  EXPECT_TRUE(fresh.HasColor({0.0, 1.0, 0.0, 0.5}));
  EXPECT_FALSE(fresh.HasColor(kRedBack));
}

/// A view with nothing of its own but its colour, and charts without frames.
class FreshView : public ::testing::Test {
 protected:
  FreshView() {
    target.view->EnableBorder(0);
    target.view->SetViewBkColor(kGreenBack);
  }
  CChart3D& AddChart(const GLViewRType& position, const RGBDType& color) {
    CChart3D& chart = *target.view->NewChart3D();
    chart.SetChartPosition(position);
    chart.SetChartBkColor(color);
    chart.EnableBorder(0);
    return chart;
  }
  Pixel Drawn(int x, int y) {
    target.view->DrawViewScreen();
    return target.WindowPixel(x, y);
  }

  ViewOn target{40, 20};
};

TEST_F(FreshView, ShowsChartsInColorsOfTheirOwn) {
  AddChart({0, 0, 0.5, 1}, kRedBack);
  AddChart({0.5, 0, 0.25, 1}, kGreenBack);
  EXPECT_EQ(Drawn(5, 5), kRed);
  EXPECT_EQ(Drawn(25, 5), kGreen);
  EXPECT_EQ(Drawn(35, 5), kGreen);
}

TEST_F(FreshView, LetsLaterChartsCoverEarlierOnes) {
  AddChart({0, 0, 1, 1}, kRedBack);
  AddChart({0, 0, 0.5, 1}, kGreenBack);
  EXPECT_EQ(Drawn(5, 5), kGreen);
  EXPECT_EQ(Drawn(35, 5), kRed);
}

TEST_F(FreshView, LetsChartsCoverItsTitleAndItsBorder) {
  target.view->GetHeader()->SetTitle1("MMMMMMMM");
  target.view->EnableBorder(1);
  target.view->SetViewBorderThickness(10.0);
  AddChart({0, 0, 1, 1}, kGreenBack);
  target.view->DrawViewScreen();
  for (int y = 0; y < 20; ++y) {
    for (int x = 0; x < 40; ++x) ASSERT_EQ(target.WindowPixel(x, y), kGreen) << x << ' ' << y;
  }
}

// Behind a chart it isn't drawn at all.
TEST_F(FreshView, ShowsItsBorderUnlessTheFirstChartCoversIt) {
  target.view->EnableBorder(1);
  target.view->SetViewBorderThickness(8.0);
  target.view->SetViewBorderColor(kRedBack);
  CChart3D& chart = AddChart({0, 0, 1, 1}, kGreenBack);
  const auto edge = [&] { return Drawn(2, 10); };
  EXPECT_EQ(edge(), kGreen);
  chart.EnableBorder(1);
  chart.SetBorderColor(kGreenBack);
  EXPECT_EQ(edge(), kGreen);
  chart.SetBorderColor({0, 0, 0, 1});
  chart.SetBorderThickness(0.0);
  EXPECT_EQ(edge(), kBlack) << "as wide as the view's, which was drawn before it";
  chart.SetBorderThickness(1.0);
  chart.SetBorderColor(kGreenBack);
  EXPECT_EQ(edge(), kGreen);
  chart.EnableChart(0);
  EXPECT_EQ(edge(), kRed);
  AddChart({0.5, 0, 0.5, 1}, kGreenBack).EnableBorder(1);
  EXPECT_EQ(edge(), kRed);
  AddChart({0, 0, 1, 1}, kGreenBack);
  EXPECT_EQ(edge(), kGreen);
  chart.EnableChart(1);
  chart.SetChartPosition({0.2, 0, 0.8, 1});
  EXPECT_EQ(edge(), kGreen) << "by the last one";
}

// A chart that was bound to a smaller view covers what it has.
TEST_F(FreshView, ShowsItsBorderBesideAChartOfAnotherView) {
  ViewOn small{10, 10};
  target.view->EnableBorder(1);
  target.view->SetViewBorderThickness(8.0);
  target.view->SetViewBorderColor(kRedBack);
  CChart3D& chart = AddChart({0, 0, 1, 1}, kGreenBack);
  chart.EnableBorder(1);
  chart.InitChart3D(small.view.get());
  small.view->DrawViewScreen();
  EXPECT_EQ(Drawn(37, 10), kRed);
}

TEST_F(FreshView, TellsOfABorderThatAChartCovers) {
  target.view->EnableBorder(1);
  AddChart({0, 0, 1, 1}, kGreenBack).EnableBorder(1);
  target.view->DrawViewScreen();
  int lines = 0;
  for (const FeedbackPrimitive& primitive :
       CaptureFeedback([&] { target.view->DrawViewScreen(); })) {
    lines += primitive.kind == FeedbackPrimitive::Kind::kLine ? 1 : 0;
  }
  EXPECT_EQ(lines, 8);
}

TEST_F(FreshView, IsClearedByChartsThatAreDrawnAlone) {
  CChart3D& chart = AddChart({0, 0, 1, 1}, kGreenBack);
  target.view->DrawViewScreen();
  COpenGL& gl = *target.view->GetOpenGLPntr();
  glClearColor(1.0F, 0.0F, 0.0F, 0.0F);
  gl.Clear(GL_COLOR_BUFFER_BIT);
  chart.DrawChart();
  gl.UpdateBitmap(40, 20);
  std::array<unsigned char, 4> pixel{};
  glReadPixels(5, 5, 1, 1, GL_RGBA, GL_UNSIGNED_BYTE, pixel.data());
  EXPECT_EQ(pixel[0], 0);
  EXPECT_EQ(pixel[1], 255);
}

}  // namespace
