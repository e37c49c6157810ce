#include <limits>

#include "series/chart_3d_fixture.h"

namespace {

using namespace orvalix::test;

const std::vector<point3Dtype> kPoints{{1, 2, 3, 0}, {4, 8, 6, 0}, {7, 1, 2, 0}, {9, 5, 8, 0}};

class LineCharts3D : public Chart3DTest {
 protected:
  void SetUpLine(const std::vector<point3Dtype>& points = kPoints) {
    chart.LineChart3D(points.data(), static_cast<int>(points.size()), 0, 1, red);
  }
  void SetUpProjection(int plane, double constant,
                       const std::vector<point3Dtype>& points = kPoints) {
    chart.ProjectionLineChart3D(points.data(), 0.0, static_cast<int>(points.size()), 0, 1, red,
                                plane, constant);
  }

  /// Expects a line from each place to the next and nothing else.
  void ExpectPath(const Primitives& drawn, const std::vector<Place>& path) const {
    ASSERT_EQ(drawn.size() + 1, path.size());
    for (std::size_t i = 0; i + 1 < path.size(); ++i) {
      SCOPED_TRACE(i);
      ExpectLine(drawn[i], path[i], path[i + 1]);
    }
  }

  /// Colours are reported vertex by vertex; that of the end is the one in which a line is drawn.
  static void ExpectEndColor(const FeedbackPrimitive& line, const RGBDType& color) {
    ExpectColor({Kind::kLine, {line.vertices.back()}}, color);
  }

  static std::vector<Place> PlacesOf(const std::vector<point3Dtype>& points) {
    std::vector<Place> places;
    for (const point3Dtype& point : points) places.push_back({point.x, point.y, point.z});
    return places;
  }
};

TEST_F(LineCharts3D, SetUpStoresItsArguments) {
  chart.LineChart3D(kPoints.data(), 4, 3, 5, green);
  EXPECT_EQ(chart.GetChartType(), 8);
  EXPECT_EQ(chart.GetNumDataPnts(), 4);
  EXPECT_EQ(chart.Get3DPoint(3).z, 8.0);
  EXPECT_EQ(chart.GetLineStyle(), 3);
  EXPECT_EQ(chart.GetLineWidth(), 5);
  ExpectSameColor(chart.GetFillColor(), green);
  ExpectSameColor(chart.GetOutlineColor(), green);
}

TEST_F(LineCharts3D, ProjectionSetUpIgnoresItsFirstPlace) {
  chart.ProjectionLineChart3D(kPoints.data(), 5.0, 4, 3, 6, green, 2, 7.0);
  EXPECT_EQ(chart.GetChartType(), 9);
  EXPECT_EQ(chart.GetConstValue(), 7.0);
  EXPECT_EQ(chart.GetProjectionPlane(), 2);
  EXPECT_EQ(chart.GetLineStyle(), 3);
  EXPECT_EQ(chart.GetLineWidth(), 6);
  ExpectSameColor(chart.GetFillColor(), green);
  ExpectSameColor(chart.GetOutlineColor(), green);
}

TEST_F(LineCharts3D, ALineRunsThroughThePoints) {
  SetUpLine();
  const auto drawn = Drawn();
  ExpectPath(drawn, PlacesOf(kPoints));
  for (const auto& line : drawn) ExpectColor(line, red);
}

TEST_F(LineCharts3D, LinesAreNeitherLitNorOutlined) {
  SetUpLine();
  chart.SetColorMode(1);
  chart.SetOutlineMode(1);
  const auto drawn = Drawn();
  ExpectPath(drawn, PlacesOf(kPoints));
  for (const auto& line : drawn) ExpectColor(line, red);
  EXPECT_EQ(gl.GetColorMode(), 1);
}

TEST_F(LineCharts3D, StyleAndWidthAreResetAfterwards) {
  const int dotted = PatternOf(3);
  chart.LineChart3D(kPoints.data(), 4, 3, 5, red);
  Drawn();
  EXPECT_EQ(PatternInUse(), dotted);
  EXPECT_EQ(WidthInUse(), 5.0F);
  EXPECT_EQ(gl.GetLineStyle(), 0);
  EXPECT_EQ(gl.GetLineWidth3D(), 1.0);
  chart.ProjectionLineChart3D(kPoints.data(), 0.0, 4, 3, 4, red, 0, 0.0);
  Drawn();
  EXPECT_EQ(PatternInUse(), dotted);
  EXPECT_EQ(WidthInUse(), 4.0F);
  EXPECT_EQ(gl.GetLineStyle(), 0);
  EXPECT_EQ(gl.GetLineWidth3D(), 1.0);
}

TEST_F(LineCharts3D, SegmentsHaveTheColorOfTheirEndsButTheLast) {
  const std::array<RGBDType, 4> colors{blue, green, yellow, black};
  for (const bool projected : {false, true}) {
    SCOPED_TRACE(projected);
    if (projected) {
      SetUpProjection(0, 0.0);
    } else {
      SetUpLine();
    }
    chart.InitSegmentColorsStorage(colors.data());
    auto drawn = Drawn();
    ASSERT_EQ(drawn.size(), 3U);
    ExpectEndColor(drawn[0], green);   // from point 0 to point 1
    ExpectEndColor(drawn[1], yellow);  // to point 2
    ExpectEndColor(drawn[2], yellow);  // the end of a line chooses no colour
    chart.SetSegmentColorMode(0);
    drawn = Drawn();
    ASSERT_EQ(drawn.size(), 3U);
    for (const auto& line : drawn) ExpectColor(line, red);
  }
}

TEST_F(LineCharts3D, SegmentsHaveOneColorFromStartToEnd) {
  const std::array<RGBDType, 4> colors{blue, green, yellow, black};
  SetUpLine();
  chart.SetLineWidth(5);
  chart.InitSegmentColorsStorage(colors.data());
  gl.SetClearColor(1, 1, 1, 1);
  gl.Clear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
  gl.LoadIdentity();
  chart.DrawChartObj();
  // From (60, 80), the place of (1, 2, 3), to (90, 110): a third of the way.
  std::array<unsigned char, 4> pixel{};
  glReadPixels(70, 90, 1, 1, GL_RGBA, GL_UNSIGNED_BYTE, pixel.data());
  EXPECT_EQ(pixel[0], 0);
  EXPECT_EQ(pixel[1], 255);
  EXPECT_EQ(pixel[2], 0);
}

TEST_F(LineCharts3D, TwoPointsHaveTheColorOfTheSeries) {
  const std::array<RGBDType, 2> colors{blue, green};
  SetUpLine({{1, 2, 3, 0}, {4, 5, 6, 0}});
  chart.InitSegmentColorsStorage(colors.data());
  const auto drawn = Drawn();
  ASSERT_EQ(drawn.size(), 1U);
  ExpectColor(drawn[0], red);
}

TEST_F(LineCharts3D, ProjectionsLieOnTheirPlane) {
  for (int plane = 0; plane < 6; ++plane) {
    SCOPED_TRACE(plane);
    SetUpProjection(plane, 2.5);
    auto path = PlacesOf(kPoints);
    for (Place& place : path) {
      if (plane % 3 == 0) place.z = 2.5;
      if (plane % 3 == 1) place.y = 2.5;
      if (plane % 3 == 2) place.x = 2.5;
    }
    ExpectPath(Drawn(), path);
  }
}

TEST_F(LineCharts3D, ProjectionsOnNoPlaneStayInSpace) {
  for (const int plane : {-1, 6, 1000}) {
    SCOPED_TRACE(plane);
    SetUpProjection(plane, 2.5);
    ExpectPath(Drawn(), PlacesOf(kPoints));  // and no line per point from point to plane
  }
}

TEST_F(LineCharts3D, LogarithmicAxes) {
  transform.SetScale({1, 0, 1, 0}, {100, 10, 1000, 0});
  transform.SetAxisScaleMode(0, 1);
  transform.SetAxisScaleMode(2, 1);
  const std::vector<point3Dtype> points{{1, 2, 1000, 0}, {10, 8, 10, 0}, {100, 4, 100, 0}};
  SetUpLine(points);
  ExpectPath(Drawn(), {{0, 2, 3}, {1, 8, 1}, {2, 4, 2}});
  SetUpProjection(0, 10.0, points);
  ExpectPath(Drawn(), {{0, 2, 1}, {1, 8, 1}, {2, 4, 1}});
  SetUpProjection(2, 100.0, points);
  ExpectPath(Drawn(), {{2, 2, 3}, {2, 8, 1}, {2, 4, 2}});
}

TEST_F(LineCharts3D, OnePointIsALineWithoutLength) {
  SetUpLine({{4, 5, 6, 0}});
  ExpectPath(Drawn(), {{4, 5, 6}, {4, 5, 6}});
  SetUpProjection(0, 1.0, {{4, 5, 6, 0}});
  ExpectPath(Drawn(), {{4, 5, 1}, {4, 5, 1}});
}

TEST_F(LineCharts3D, FewOrNoPoints) {
  for (const bool projected : {false, true}) {
    SCOPED_TRACE(projected);
    const auto setUp = [&](const std::vector<point3Dtype>& points) {
      if (projected) {
        SetUpProjection(-1, 0.0, points);
      } else {
        SetUpLine(points);
      }
    };
    setUp({});
    EXPECT_TRUE(Drawn().empty());
    setUp(kPoints);
    chart.SetNumDataPnts(1000000);  // more than there are
    ExpectPath(Drawn(), PlacesOf(kPoints));
    chart.SetNumDataPnts(2);
    EXPECT_EQ(Drawn().size(), 1U);
    chart.SetNumDataPnts(-1);
    EXPECT_TRUE(Drawn().empty());
    chart.SetNumDataPnts(4);
    chart.Delete3DPointStorage();
    EXPECT_TRUE(Drawn().empty());
  }
}

TEST_F(LineCharts3D, PointsWithoutAPlaceLeaveAGap) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  SetUpLine({{1, 2, 3, 0}, {4, 8, 6, 0}, {nan, 1, 2, 0}, {7, 1, 2, 0}, {9, 5, 8, 0}});
  const auto drawn = Drawn();
  ASSERT_EQ(drawn.size(), 2U);
  ExpectLine(drawn[0], {1, 2, 3}, {4, 8, 6});
  ExpectLine(drawn[1], {7, 1, 2}, {9, 5, 8});
  SetUpProjection(0, nan);
  EXPECT_TRUE(Drawn().empty());
  SetUpLine({{nan, nan, nan, 0}, {1, 2, 3, 0}, {4, 8, 6, 0}});
  ExpectPath(Drawn(), {{1, 2, 3}, {4, 8, 6}});
}

}  // namespace
