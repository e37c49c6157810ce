#include <limits>

#include "series/chart_3d_fixture.h"

namespace {

using namespace orvalix::test;

class BarCharts3D : public Chart3DTest {
 protected:
  void SetUpBars(const std::vector<point3Dtype>& points, const std::vector<double>& heights) {
    chart.BarChart3D(points.data(), heights.empty() ? nullptr : heights.data(),
                     static_cast<int>(points.size()), 2.0, 3.0, red, blue);
  }
  void SetUpPlanes(const std::vector<point3Dtype>& points) {
    chart.PlaneChart3D(points.data(), static_cast<int>(points.size()), 2.0, 3.0, red, blue);
  }
};

TEST_F(BarCharts3D, SetUpStoresItsArguments) {
  SetUpBars({{1, 2, 3, 4}, {5, 6, 7, 8}}, {9, 10});
  EXPECT_EQ(chart.GetChartType(), 3);
  EXPECT_EQ(chart.GetNumDataPnts(), 2);
  EXPECT_EQ(chart.Get3DPoint(1).v, 8.0);
  EXPECT_EQ(chart.GetBarHeight(1), 10.0);
  EXPECT_EQ(chart.GetIndWidth(), 2.0);
  EXPECT_EQ(chart.GetConstWidth(), 3.0);
  ExpectSameColor(chart.GetFillColor(), red);
  ExpectSameColor(chart.GetOutlineColor(), blue);
  SetUpPlanes({{1, 2, 3, 4}});
  EXPECT_EQ(chart.GetChartType(), 14);
  EXPECT_EQ(chart.GetNumDataPnts(), 1);
  EXPECT_EQ(chart.GetBarHeight(0), 9.0);  // of the bars, still there
}

TEST_F(BarCharts3D, BarsReachFromTheirHeightsToTheirPoints) {
  SetUpBars({{1, 2, 8, 0}, {6, 5, 2, 0}, {4, 4, 3, 0}}, {3, 7, 3});
  const auto drawn = Drawn();
  // With their corner on the point; the second hangs from its height, the third has no extent.
  ExpectBoxes(drawn, {{1, 2, 3, 2, 3, 5}, {6, 5, 7, 2, 3, -5}, {4, 4, 3, 2, 3, 0}});
  for (const auto& face : drawn) ExpectColor(face, red);
}

TEST_F(BarCharts3D, BarsWithoutHeightsStartAt0) {
  SetUpBars({{1, 2, 8, 0}, {6, 5, -2, 0}}, {});
  ExpectBoxes(Drawn(), {{1, 2, 0, 2, 3, 8}, {6, 5, 0, 2, 3, -2}});
}

TEST_F(BarCharts3D, HeightsOfEarlierBarsStay) {
  SetUpBars({{1, 2, 8, 0}}, {3});
  SetUpBars({{1, 2, 8, 0}, {6, 5, 8, 0}}, {});
  // One height is left over for the first; the second starts at 0.
  ExpectBoxes(Drawn(), {{1, 2, 3, 2, 3, 5}, {6, 5, 0, 2, 3, 8}});
  chart.DeleteBarHeightsStorage();
  ExpectBoxes(Drawn(), {{1, 2, 0, 2, 3, 8}, {6, 5, 0, 2, 3, 8}});
}

TEST_F(BarCharts3D, LogarithmicAxesConvertSizesToo) {
  transform.SetScale({1, 1, 1, 0}, {1e6, 1e6, 1e6, 0});
  for (int axis = 0; axis < 3; ++axis) transform.SetAxisScaleMode(axis, 1);
  chart.BarChart3D(std::vector<point3Dtype>{{10, 100, 1e5, 0}}.data(),
                   std::vector<double>{1000}.data(), 1, 100.0, 1000.0, red, blue);
  // From log10(10), log10(100), log10(1000); as wide as log10(100) and log10(1000).
  ExpectBoxes(Drawn(), {{1, 2, 3, 2, 3, 2}});
  chart.DeleteBarHeightsStorage();
  ExpectBoxes(Drawn(), {{1, 2, 0, 2, 3, 5}});  // the logarithm of 0 is taken to be 0
  chart.PlaneChart3D(std::vector<point3Dtype>{{10, 100, 1e5, 0}}.data(), 1, 100.0, 1000.0, red,
                     blue);
  ExpectBoxes(Drawn(), {{1, 2, 5, 2, 3, 0.12}});  // 0.02 of a working range of 6
}

TEST_F(BarCharts3D, PlanesLieOnTheirPoints) {
  SetUpPlanes({{1, 2, 8, 0}, {6, 5, 2, 0}});
  ExpectBoxes(Drawn(), {{1, 2, 8, 2, 3, 0.2}, {6, 5, 2, 2, 3, 0.2}});
  chart.SetPlaneThickness(0.5);
  ExpectBoxes(Drawn(), {{1, 2, 8, 2, 3, 5}, {6, 5, 2, 2, 3, 5}});
  chart.SetPlaneThickness(-0.1);
  ExpectBoxes(Drawn(), {{1, 2, 8, 2, 3, -1}, {6, 5, 2, 2, 3, -1}});
  chart.SetPlaneThickness(0.02);
  transform.SetScale({0, 0, 10, 0}, {10, 10, 0, 0});  // upside down: thickness goes up again
  ExpectBoxes(Drawn(), {{1, 2, 8, 2, 3, -0.2}, {6, 5, 2, 2, 3, -0.2}});
}

TEST_F(BarCharts3D, SegmentsHaveTheColorsOfTheirPoints) {
  const std::array<RGBDType, 2> colors{green, yellow};
  for (const bool planes : {false, true}) {
    SCOPED_TRACE(planes);
    if (planes) {
      SetUpPlanes({{1, 2, 8, 0}, {6, 5, 2, 0}, {4, 4, 3, 0}});
    } else {
      SetUpBars({{1, 2, 8, 0}, {6, 5, 2, 0}, {4, 4, 3, 0}}, {});
    }
    chart.SetNumDataPnts(2);
    chart.InitSegmentColorsStorage(colors.data());
    chart.SetNumDataPnts(3);
    auto drawn = Drawn();
    ASSERT_EQ(drawn.size(), 18U);
    for (std::size_t i = 0; i < 18; ++i) {
      ExpectColor(drawn[i], i < 6 ? green : i < 12 ? yellow : red);
    }
    chart.SetSegmentColorMode(0);
    drawn = Drawn();
    ASSERT_EQ(drawn.size(), 18U);
    for (const auto& face : drawn) ExpectColor(face, red);
  }
}

TEST_F(BarCharts3D, OutlinesOfBarsKeepTheLineWidthInForce) {
  SetUpBars({{1, 2, 8, 0}}, {3});
  chart.SetOutlineMode(1);
  chart.SetOutlineWidth(3.0);
  gl.SetLineWidth3D(5.0);
  const auto drawn = Drawn();
  ASSERT_EQ(drawn.size(), 30U);
  for (std::size_t i = 0; i < drawn.size(); ++i) ExpectColor(drawn[i], i % 5 == 0 ? red : blue);
  EXPECT_EQ(WidthInUse(), 5.0F);
  EXPECT_EQ(gl.GetLineWidth3D(), 5.0);
}

TEST_F(BarCharts3D, OutlinesOfPlanesHaveTheirWidth) {
  SetUpPlanes({{1, 2, 8, 0}});
  chart.SetOutlineMode(1);
  chart.SetOutlineWidth(3.0);
  gl.SetLineWidth3D(5.0);
  const auto drawn = Drawn();
  ASSERT_EQ(drawn.size(), 30U);
  for (std::size_t i = 0; i < drawn.size(); ++i) ExpectColor(drawn[i], i % 5 == 0 ? red : blue);
  EXPECT_EQ(WidthInUse(), 3.0F);
  EXPECT_EQ(gl.GetLineWidth3D(), 1.0);
}

TEST_F(BarCharts3D, FewOrNoPoints) {
  for (const bool planes : {false, true}) {
    SCOPED_TRACE(planes);
    const auto setUp = [&](const std::vector<point3Dtype>& points) {
      if (planes) {
        SetUpPlanes(points);
      } else {
        SetUpBars(points, {});
      }
    };
    setUp({});
    EXPECT_TRUE(Drawn().empty());
    setUp({{1, 2, 8, 0}});
    chart.SetNumDataPnts(1000000);  // more than there are
    EXPECT_EQ(Drawn().size(), 6U);
    chart.SetNumDataPnts(0);
    EXPECT_TRUE(Drawn().empty());
    chart.SetNumDataPnts(-1);
    EXPECT_TRUE(Drawn().empty());
    chart.SetNumDataPnts(1);
    chart.Delete3DPointStorage();
    EXPECT_TRUE(Drawn().empty());
  }
}

TEST_F(BarCharts3D, WhatHasNoPlaceIsLeftOut) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  SetUpBars({{nan, 2, 8, 0}, {6, 5, 2, 0}, {4, 4, kInfinity, 0}, {4, 4, 3, 0}}, {3, 7, 3, nan});
  ExpectBoxes(Drawn(), {{6, 5, 7, 2, 3, -5}});
  SetUpPlanes({{1, nan, 8, 0}, {6, 5, 2, 0}, {4, 4, -kInfinity, 0}});
  ExpectBoxes(Drawn(), {{6, 5, 2, 2, 3, 0.2}});
  chart.SetPlaneThickness(nan);
  EXPECT_TRUE(Drawn().empty());
}

}  // namespace
