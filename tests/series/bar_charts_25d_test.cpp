#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <limits>
#include <utility>
#include <vector>

#include "series/series_fixture.h"

namespace {

using orvalix::test::FeedbackPrimitive;
using orvalix::test::FeedbackVertex;
using Kind = FeedbackPrimitive::Kind;

class BarChart25D : public orvalix::test::SeriesTest {
 protected:
  void SetUpBars(std::vector<double> ind, std::vector<double> dep, double base = 0.0,
                 int indJustify = 0, int constJustify = 0, int indAxis = 0) {
    series.BarChart25D(ind.data(), dep.data(), base, 4.0, static_cast<int>(ind.size()), 2.0, 3.0,
                       red, blue, indJustify, constJustify, indAxis);
    Plain();
  }
};

TEST_F(BarChart25D, SetUpStoresItsArguments) {
  std::array<double, 2> ind{1, 2};
  std::array<double, 2> dep{3, 4};
  series.BarChart25D(ind.data(), dep.data(), 0.5, 1.5, 2, 2.5, 3.5, red, blue, 1, 2, 1);
  EXPECT_EQ(series.GetChartType(), 2);
  EXPECT_EQ(series.GetNumDataPnts(), 2);
  EXPECT_EQ(series.GetIndData(1), 2.0);
  EXPECT_EQ(series.GetDepData(1), 4.0);
  EXPECT_EQ(series.GetBaseValue(), 0.5);
  EXPECT_EQ(series.GetConstValue(), 1.5);
  EXPECT_EQ(series.GetIndWidth(), 2.5);
  EXPECT_EQ(series.GetConstWidth(), 3.5);
  EXPECT_EQ(series.GetFillColor().red, 1.0);
  EXPECT_EQ(series.GetOutlineColor().blue, 1.0);
  EXPECT_EQ(series.GetIndJustify(), 1);
  EXPECT_EQ(series.GetConstJustify(), 2);
  EXPECT_EQ(series.GetIndAxis(), 1);
}

TEST_F(BarChart25D, BarsStandOnTheBaseValue) {
  SetUpBars({1, 4, 7}, {5, 8, 1}, 2.0);
  const auto drawn = Drawn();
  // From the base value 2, as high as the value minus the base; the last one hangs from it.
  ExpectBoxes(drawn, {{1, 4, 2, 2, 3, 3}, {4, 4, 2, 2, 3, 6}, {7, 4, 2, 2, 3, -1}});
  for (const auto& face : drawn) ExpectColor(face, red);
}

TEST_F(BarChart25D, IndependentValuesMayRunAlongY) {
  SetUpBars({1, 4}, {5, 8}, 0.0, 0, 0, 1);
  // The width along y is the independent one; the series stands at x = 4, 3 wide.
  ExpectBoxes(Drawn(), {{4, 1, 0, 3, 2, 5}, {4, 4, 0, 3, 2, 8}});
}

TEST_F(BarChart25D, OtherAxesMixTheFootprint) {
  SetUpBars({1}, {5}, 0.0, 0, 0, 7);
  // Neither 0 nor 1: placed along x, but the constant width serves for both extents.
  ExpectBoxes(Drawn(), {{1, 4, 0, 3, 3, 5}});
}

TEST_F(BarChart25D, JustificationsMoveTheBars) {
  const std::array<double, 4> indOffsets{0, -1, -2, 0};      // of width 2: start, centre, end, none
  const std::array<double, 4> constOffsets{0, -1.5, -3, 0};  // of width 3
  for (int ind = 0; ind < 4; ++ind) {
    for (int constant = 0; constant < 4; ++constant) {
      SCOPED_TRACE(::testing::Message() << ind << ", " << constant);
      const double along = indOffsets[static_cast<std::size_t>(ind)];
      const double across = constOffsets[static_cast<std::size_t>(constant)];
      SetUpBars({5}, {5}, 0.0, ind, constant, 0);
      ExpectBoxes(Drawn(), {{5 + along, 4 + across, 0, 2, 3, 5}});
      SetUpBars({5}, {5}, 0.0, ind, constant, 1);
      ExpectBoxes(Drawn(), {{4 + across, 5 + along, 0, 3, 2, 5}});
    }
  }
}

TEST_F(BarChart25D, SegmentsHaveTheirOwnColors) {
  SetUpBars({1, 4}, {5, 8});
  const std::array<RGBDType, 2> colors{green, blue};
  series.InitSegmentColorsStorage(colors.data());
  auto drawn = Drawn();
  ASSERT_EQ(drawn.size(), 12U);
  ExpectColor(drawn[0], green);
  ExpectColor(drawn[6], blue);
  series.DeleteSegmentColorsStorage();  // the mode stays, the colours are gone
  drawn = Drawn();
  ASSERT_EQ(drawn.size(), 12U);
  ExpectColor(drawn[0], red);
}

TEST_F(BarChart25D, OutlinesHaveColorAndWidth) {
  SetUpBars({1}, {5});
  series.SetOutlineMode(1);
  series.SetOutlineWidth(3.0);
  const auto drawn = Drawn();
  ASSERT_EQ(drawn.size(), 6U * 5U);  // each face is followed by its four edges
  std::vector<FeedbackPrimitive> frames;
  for (std::size_t face = 0; face < drawn.size(); face += 5) {
    ASSERT_EQ(drawn[face].kind, Kind::kPolygon);
    ExpectColor(drawn[face], red);
    FeedbackPrimitive frame{Kind::kPolygon, {}};
    for (std::size_t edge = 0; edge < 4; ++edge) {
      const FeedbackPrimitive& line = drawn[face + 1 + edge];
      ASSERT_EQ(line.kind, Kind::kLine);
      ExpectColor(line, blue);
      EXPECT_NEAR(line.vertices[0].x, drawn[face].vertices[edge].x, 1e-2) << face << ' ' << edge;
      EXPECT_NEAR(line.vertices[0].y, drawn[face].vertices[edge].y, 1e-2) << face << ' ' << edge;
      frame.vertices.push_back(line.vertices[0]);
      if (edge == 3) frame.vertices.push_back(line.vertices[1]);
    }
    frames.push_back(frame);
  }
  // The edges are those of the box; depths of outlined faces seen edge-on aren't reported.
  ExpectBoxes(frames, {{1, 4, 0, 2, 3, 5}});
  GLfloat width = 0;
  glGetFloatv(GL_LINE_WIDTH, &width);
  EXPECT_EQ(width, 3.0F);
  EXPECT_EQ(target.gl->GetLineWidth3D(), 1.0);  // reset when the bars are drawn
}

TEST_F(BarChart25D, AreLitByDefault) {
  std::array<double, 1> ind{1};
  std::array<double, 1> dep{5};
  series.BarChart25D(ind.data(), dep.data(), 0, 4, 1, 2, 3, red, blue, 0, 0, 0);
  Drawn();
  EXPECT_EQ(target.gl->GetColorMode(), 1);
}

TEST_F(BarChart25D, LogarithmicHeightsFollowTheFormula) {
  transform.SetScale({0, 0, 1, 0}, {10, 10, 1000, 0});
  transform.SetAxisScaleMode(2, 1);
  SetUpBars({1, 4}, {110, 10}, 10.0);
  // z starts at log10(10) = 1; the height is log10(110 - 10) = 2, and 0 for 10 - 10.
  ExpectBoxes(Drawn(), {{1, 4, 1, 2, 3, 2}, {4, 4, 1, 2, 3, 0}});
}

TEST_F(BarChart25D, LogarithmicFootprintsAreNotConverted) {
  transform.SetScale({1, 0, 0, 0}, {1e6, 10, 10, 0});
  transform.SetAxisScaleMode(0, 1);
  SetUpBars({100}, {5}, 0.0, 1, 0, 0);
  // x at log10(100) = 2, moved by half of the width 2 as it is.
  ExpectBoxes(Drawn(), {{1, 4, 0, 2, 3, 5}});
}

TEST_F(BarChart25D, InvertedAxesMirror) {
  transform.SetScale({10, 0, 10, 0}, {0, 10, 0, 0});
  SetUpBars({1}, {5});
  ExpectBoxes(Drawn(), {{1, 4, 0, 2, 3, 5}});
}

TEST_F(BarChart25D, FewOrNoPoints) {
  SetUpBars({}, {});
  EXPECT_TRUE(Drawn().empty());
  SetUpBars({5}, {5});
  EXPECT_EQ(Drawn().size(), 6U);
  series.SetNumDataPnts(1000000);  // more than the arrays hold
  EXPECT_EQ(Drawn().size(), 6U);
  series.SetNumDataPnts(-1);
  EXPECT_TRUE(Drawn().empty());
  series.SetNumDataPnts(1);
  series.DeleteDepDataStorage();
  EXPECT_TRUE(Drawn().empty());
}

TEST_F(BarChart25D, BarsThatCannotBePlacedAreLeftOut) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  SetUpBars({nan, 4, kInfinity}, {5, 8, 5});
  ExpectBoxes(Drawn(), {{4, 4, 0, 2, 3, 8}});
  SetUpBars({1, 4}, {nan, 8});
  ExpectBoxes(Drawn(), {{4, 4, 0, 2, 3, 8}});
}

TEST_F(BarChart25D, AttributesWithoutAPlaceDrawNothing) {
  using Set = void (CChartObj3D::*)(double);
  for (const Set set : {&CChartObj3D::SetBaseValue, &CChartObj3D::SetConstValue,
                        &CChartObj3D::SetConstWidth, &CChartObj3D::SetIndWidth}) {
    for (const double value :
         {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity()}) {
      SetUpBars({1, 4}, {5, 8});
      (series.*set)(value);
      EXPECT_TRUE(Drawn().empty());
    }
  }
}

/// The lowest and the highest pixel of what was drawn.
std::pair<double, double> RangeOf(const std::vector<FeedbackPrimitive>& drawn) {
  std::pair<double, double> range{std::numeric_limits<double>::infinity(),
                                  -std::numeric_limits<double>::infinity()};
  for (const FeedbackPrimitive& face : drawn) {
    for (const FeedbackVertex& vertex : face.vertices) {
      range.first = std::min(range.first, vertex.y);
      range.second = std::max(range.second, vertex.y);
    }
  }
  return range;
}

// The scale from 0 to 10 lies at 50 to 150 pixels; the clip planes stand 0.00123456 of that higher.
TEST_F(BarChart25D, ClippedToTheScaleWhenAsked) {
  SetUpBars({1}, {12});
  EXPECT_NEAR(RangeOf(Drawn()).second, 170.0, 0.01);
  series.SetClipping(1);
  auto drawn = Drawn();
  ASSERT_FALSE(drawn.empty());
  EXPECT_NEAR(RangeOf(drawn).first, 50.12, 0.01);
  EXPECT_NEAR(RangeOf(drawn).second, 150.12, 0.01);

  SetUpBars({1}, {3}, -5.0);  // from -5 to 3
  EXPECT_NEAR(RangeOf(Drawn()).first, 50.12, 0.01);
  EXPECT_NEAR(RangeOf(Drawn()).second, 80.0, 0.01);
  SetUpBars({1}, {-1}, -5.0);  // below the scale altogether
  EXPECT_TRUE(Drawn().empty());
}

TEST_F(BarChart25D, ClippingLeavesWhatIsInside) {
  SetUpBars({1, 4}, {5, 8}, 2.0);
  series.SetClipping(1);
  ExpectBoxes(Drawn(), {{1, 4, 2, 2, 3, 3}, {4, 4, 2, 2, 3, 6}});
}

}  // namespace
