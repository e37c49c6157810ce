#include <gtest/gtest.h>

#include <array>
#include <vector>

#include "series/series_fixture.h"

namespace {

using orvalix::test::kNan;

class LineChart25D : public orvalix::test::SeriesTest {
 protected:
  void SetUpLine(const std::vector<double>& ind, const std::vector<double>& dep, int indAxis = 0,
                 int style = 0, double width = 1.0) {
    series.LineChart25D(ind.data(), dep.data(), 4.0, static_cast<int>(ind.size()), style, width,
                        red, indAxis);
  }

  static void ExpectPixel(int x, int y, const RGBDType& color) {
    std::array<GLfloat, 3> pixel{};
    glReadPixels(x, y, 1, 1, GL_RGB, GL_FLOAT, pixel.data());
    EXPECT_EQ(pixel[0], color.red) << x;
    EXPECT_EQ(pixel[1], color.green) << x;
    EXPECT_EQ(pixel[2], color.blue) << x;
  }
};

TEST_F(LineChart25D, GoesThroughThePoints) {
  SetUpLine({1, 4, 9}, {5, 8, 2});
  const auto drawn = Drawn();
  ExpectLines(drawn, {{{1, 4, 5}, {4, 4, 8}}, {{4, 4, 8}, {9, 4, 2}}});
  for (const auto& line : drawn) ExpectColor(line, red);  // not lit, though the series is
  EXPECT_EQ(target.gl->GetColorMode(), 1);
}

TEST_F(LineChart25D, IndependentValuesRunAlongYForAllOtherAxes) {
  for (const int axis : {1, 2, -1}) {
    SetUpLine({1, 4, 9}, {5, 8, 2}, axis);
    ExpectLines(Drawn(), {{{4, 1, 5}, {4, 4, 8}}, {{4, 4, 8}, {4, 9, 2}}});
  }
}

TEST_F(LineChart25D, PointsAreConverted) {
  SetLogScale(0, 1, 1e6);
  SetLogScale(1, 1, 1e6);
  SetLogScale(2, 1, 1e6);
  series.LineChart25D(std::array{10.0, 1e4}.data(), std::array{100.0, 1e5}.data(), 1000.0, 2, 0,
                      1.0, red, 0);
  ExpectLines(Drawn(), {{{1, 3, 2}, {4, 3, 5}}});
}

TEST_F(LineChart25D, HasNoJustification) {
  SetUpLine({1, 4}, {5, 8});
  series.SetConstJustify(2);
  series.SetConstWidth(3.0);
  ExpectLines(Drawn(), {{{1, 4, 5}, {4, 4, 8}}});
}

TEST_F(LineChart25D, StyleAndWidthHoldWhileItIsDrawn) {
  SetUpLine({1, 4}, {5, 8}, 0, 2, 3.9);
  Drawn();
  EXPECT_EQ(GLNumber(GL_LINE_STIPPLE_PATTERN), 0x1111);
  EXPECT_EQ(GLNumber(GL_LINE_WIDTH), 3.0);
  EXPECT_EQ(target.gl->GetLineStyle(), 0);
  EXPECT_EQ(target.gl->GetLineWidth3D(), 1.0);
}

TEST_F(LineChart25D, TheOutlineColorIsThatOfTheLine) {
  SetUpLine({1, 4}, {5, 8});
  series.SetOutlineColor(green);
  const auto drawn = Drawn();
  ASSERT_EQ(drawn.size(), 1U);
  ExpectColor(drawn[0], green);
  EXPECT_EQ(target.gl->GetLineColor3D().green, 1.0);
  EXPECT_EQ(target.gl->GetLineColor3D().red, 0.0);
}

// The last line chooses no colour, and has that of the one before.
TEST_F(LineChart25D, SegmentsHaveTheirOwnColors) {
  SetUpLine({0, 2, 4, 8}, {5, 5, 5, 5}, 0, 0, 5.0);
  series.InitSegmentColorsStorage(std::array{yellow, green, cyan, magenta}.data());
  const auto drawn = Drawn();
  const std::array<RGBDType, 3> colors{green, cyan, cyan};
  ASSERT_EQ(drawn.size(), colors.size());
  for (std::size_t i = 0; i < colors.size(); ++i) {
    ExpectColor({drawn[i].kind, {drawn[i].vertices[1]}}, colors[i]);  // a line has that of its end
  }
  // All of it, without a transition: 0 lies at 50, 2 at 70 and 4 at 90 pixels, 5 at 100.
  target.gl->LoadIdentity();
  series.DrawChartObj();
  ExpectPixel(52, 100, green);
  ExpectPixel(68, 100, green);
  ExpectPixel(72, 100, cyan);
  ExpectPixel(92, 100, cyan);
  ExpectPixel(128, 100, cyan);
}

TEST_F(LineChart25D, ASingleSegmentHasNoColorOfItsOwn) {
  SetUpLine({1, 4}, {5, 8});
  series.InitSegmentColorsStorage(std::array{yellow, green}.data());
  const auto drawn = Drawn();
  ASSERT_EQ(drawn.size(), 1U);
  ExpectColor(drawn[0], red);
}

TEST_F(LineChart25D, OnePointStartsAndEndsTheLine) {
  SetUpLine({5}, {8});
  ExpectLines(Drawn(), {{{5, 4, 8}, {5, 4, 8}}});
}

TEST_F(LineChart25D, NoPoints) {
  SetUpLine({}, {});
  EXPECT_TRUE(Drawn().empty());
  SetUpLine({1, 4, 9}, {5, 8, 2});
  series.SetNumDataPnts(1000000);
  EXPECT_EQ(Drawn().size(), 2U);
  series.SetNumDataPnts(-1);
  EXPECT_TRUE(Drawn().empty());
  series.SetNumDataPnts(3);
  series.DeleteDepDataStorage();
  EXPECT_TRUE(Drawn().empty());
}

TEST_F(LineChart25D, GoesOnBehindAPointWithoutAPlace) {
  SetUpLine({1, 2, 3, 4, 5}, {5, 6, kNan, 7, 8});
  ExpectLines(Drawn(), {{{1, 4, 5}, {2, 4, 6}}, {{4, 4, 7}, {5, 4, 8}}});
}

}  // namespace
