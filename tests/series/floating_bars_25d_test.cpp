#include <gtest/gtest.h>

#include <array>
#include <vector>

#include "series/series_fixture.h"

namespace {

using orvalix::test::kJustifications;
using orvalix::test::kNan;

class FloatingBars25D : public orvalix::test::SeriesTest {
 protected:
  void SetUpBars(const std::vector<double>& ind, const std::vector<double>& dep,
                 const std::vector<double>& heights, int indJustify = 0, int constJustify = 0,
                 int indAxis = 0) {
    series.FloatingBarChart25D(ind.data(), dep.data(), heights.data(), 4.0,
                               static_cast<int>(ind.size()), 2.0, 3.0, red, blue, indJustify,
                               constJustify, indAxis);
    Plain();
  }
};

TEST_F(FloatingBars25D, HangFromTheirValues) {
  SetUpBars({1, 4, 7}, {5, 8, 6}, {3, 6, -1});
  // From value minus height, as high as the height; a negative height stands on the value, and the
  // box reaches down from there: 6 + 1 = 7, minus 1.
  const auto drawn = Drawn();
  ExpectBoxes(drawn, {{1, 4, 2, 2, 3, 3}, {4, 4, 2, 2, 3, 6}, {7, 4, 7, 2, 3, -1}});
  ExpectSolidColors(drawn, {red, red, red});
}

TEST_F(FloatingBars25D, HaveNoBaseValue) {
  SetUpBars({1}, {5}, {3});
  for (const double base : {7.0, kNan}) {
    series.SetBaseValue(base);
    ExpectBoxes(Drawn(), {{1, 4, 2, 2, 3, 3}});
  }
}

TEST_F(FloatingBars25D, IndependentValuesMayRunAlongY) {
  SetUpBars({1, 4}, {5, 8}, {3, 2}, 0, 0, 1);
  ExpectBoxes(Drawn(), {{4, 1, 2, 3, 2, 3}, {4, 4, 6, 3, 2, 2}});
}

TEST_F(FloatingBars25D, OtherAxesMixTheFootprint) {
  SetUpBars({1}, {5}, {3}, 0, 0, -1);
  // Placed along x, but the constant width serves for both extents.
  ExpectBoxes(Drawn(), {{1, 4, 2, 3, 3, 3}});
}

TEST_F(FloatingBars25D, JustificationsMoveThem) {
  for (const auto& [ind, indShare] : kJustifications) {
    for (const auto& [constant, constShare] : kJustifications) {
      SCOPED_TRACE(::testing::Message() << ind << ", " << constant);
      SetUpBars({5}, {5}, {3}, ind, constant, 0);
      ExpectBoxes(Drawn(), {{5 + 2 * indShare, 4 + 3 * constShare, 2, 2, 3, 3}});
      SetUpBars({5}, {5}, {3}, ind, constant, 1);
      ExpectBoxes(Drawn(), {{4 + 3 * constShare, 5 + 2 * indShare, 2, 3, 2, 3}});
    }
  }
}

TEST_F(FloatingBars25D, LogarithmicHeightsAreConvertedAlone) {
  SetLogScale(2, 1, 1000);
  SetUpBars({1, 4}, {1000, 100}, {10, 0});
  // Tops at log10(1000) = 3 and 2; log10(10) = 1 high, and not high at all for 0.
  ExpectBoxes(Drawn(), {{1, 4, 2, 2, 3, 1}, {4, 4, 2, 2, 3, 0}});
}

TEST_F(FloatingBars25D, LogarithmicFootprintsAreNotConverted) {
  SetLogScale(0, 1, 1e6);
  SetLogScale(1, 1, 1e6);
  series.FloatingBarChart25D(std::array{100.0}.data(), std::array{5.0}.data(),
                             std::array{3.0}.data(), 1000.0, 1, 2.0, 1.0, red, blue, 1, 2, 0);
  Plain();
  // x at 2, moved by half of 2; y at 3, moved by 1: both as they are.
  ExpectBoxes(Drawn(), {{1, 2, 2, 2, 1, 3}});
}

TEST_F(FloatingBars25D, SegmentsHaveTheirOwnColors) {
  SetUpBars({1, 4}, {5, 8}, {3, 3});
  series.InitSegmentColorsStorage(std::array{green, blue}.data());
  ExpectSolidColors(Drawn(), {green, blue});
  series.SetSegmentColorMode(0);
  ExpectSolidColors(Drawn(), {red, red});
}

TEST_F(FloatingBars25D, OutlinesHaveTheirWidth) {
  SetUpBars({1}, {5}, {3});
  series.SetOutlineMode(1);
  series.SetOutlineWidth(3.0);
  ExpectBoxes(FacesFromEdges(Drawn()), {{1, 4, 2, 2, 3, 3}});
  EXPECT_EQ(GLNumber(GL_LINE_WIDTH), 3.0);
  EXPECT_EQ(target.gl->GetLineWidth3D(), 1.0);
}

TEST_F(FloatingBars25D, NeedAllThreeArrays) {
  using Delete = void (CChartObj3D::*)();
  for (const Delete free : {&CChartObj3D::DeleteIndDataStorage, &CChartObj3D::DeleteDepDataStorage,
                            &CChartObj3D::DeleteBarHeightsStorage}) {
    SetUpBars({1, 4}, {5, 8}, {3, 3});
    EXPECT_EQ(Drawn().size(), 12U);
    (series.*free)();
    EXPECT_TRUE(Drawn().empty());
  }
}

TEST_F(FloatingBars25D, AsManyAsTheShortestArrayHolds) {
  SetUpBars({1, 4, 7}, {5, 8, 6}, {3, 6, 1});
  series.SetNumDataPnts(1);
  series.SetBarHeightsStorage(std::array{2.0}.data());
  series.SetNumDataPnts(3);
  ExpectBoxes(Drawn(), {{1, 4, 3, 2, 3, 2}});
  series.SetNumDataPnts(0);
  EXPECT_TRUE(Drawn().empty());
  series.SetNumDataPnts(-1);
  EXPECT_TRUE(Drawn().empty());
}

}  // namespace
