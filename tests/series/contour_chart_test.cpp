#include <cmath>

#include "series/chart_3d_fixture.h"
#include "support/allocation_failure.h"
#include "support/caught_error.h"

namespace {

using namespace orvalix::test;

class ContourChart : public Chart3DTest {
 protected:
  /// Heights that climb along x from 0 to 10 over the whole scale: a line of height k is at x = k.
  static CPolysurface Slope() {
    const std::array<double, 4> heights{0, 10, 0, 10};
    return CPolysurface(2, 2, 0, 0, 10, 10, heights.data(), 1);
  }

  void SetUpContours(const std::vector<double>& levels, const std::vector<RGBDType>& colors,
                     double plane = 0.0) {
    const CPolysurface mesh = Slope();
    chart.ContourPolysurface3D(&mesh, levels.data(), colors.data(), static_cast<int>(levels.size()),
                               plane, 0);
  }

  /// Expects two lines, one per triangle, at each of these heights, in these colors.
  void ExpectContours(const Primitives& drawn, const std::vector<double>& levels,
                      const std::vector<RGBDType>& colors, double plane) const {
    ASSERT_EQ(drawn.size(), 2 * levels.size());
    for (std::size_t i = 0; i < drawn.size(); ++i) {
      SCOPED_TRACE(i);
      const double x = levels[i / 2];
      // The diagonal of the cell from (10, 0) to (0, 10) divides the line at y = 10 - x.
      const auto& from = drawn[i].vertices.front();
      const auto& to = drawn[i].vertices.back();
      const FeedbackVertex middle = Window({x, 10.0 - x, plane});
      // A line begins at the far end of what was followed from the first triangle.
      const FeedbackVertex end = Window({x, i % 2 == 0 ? 10.0 : 0.0, plane});
      EXPECT_NEAR(from.x, middle.x, 1e-2);
      EXPECT_NEAR(to.x, middle.x, 1e-2);
      EXPECT_NEAR(from.y, middle.y, 1e-2);
      EXPECT_NEAR(to.y, middle.y, 1e-2);
      EXPECT_NEAR(std::min(from.z, to.z), std::min(middle.z, end.z), 1e-5);
      EXPECT_NEAR(std::max(from.z, to.z), std::max(middle.z, end.z), 1e-5);
      ExpectColor(drawn[i], colors[i / 2]);
    }
  }
};

TEST_F(ContourChart, SetUpStoresItsArguments) {
  const CPolysurface mesh = Slope();
  const std::array<double, 2> levels{1.5, 2.5};
  const std::array<RGBDType, 3> colors{red, green, yellow};
  chart.ContourPolysurface3D(&mesh, levels.data(), colors.data(), 2, 7.5, 1);
  EXPECT_EQ(chart.GetChartType(), 52);
  EXPECT_EQ(chart.GetNumContours(), 2);
  EXPECT_EQ(chart.GetConstValue(), 7.5);
  EXPECT_EQ(chart.GetContourLabelFlag(), 1);
  EXPECT_EQ(chart.GetNumDataPnts(), 0);
  EXPECT_EQ(chart.GetContourValue(0), 0.0);  // bounded by the points, of which there are none
  chart.SetNumDataPnts(2);
  EXPECT_EQ(chart.GetContourValue(1), 2.5);
  ExpectSameColor(chart.GetContourColor(2), yellow);
}

TEST_F(ContourChart, LinesLieInOnePlaneInTheirColors) {
  for (const double plane : {0.0, 10.0, 4.0}) {
    SetUpContours({2, 7, 5.5}, {red, green, yellow, black}, plane);
    ExpectContours(Drawn(), {2, 7, 5.5}, {red, green, yellow}, plane);
  }
}

TEST_F(ContourChart, LinesAreNeitherLitNorLabelled) {
  SetUpContours({2, 7}, {red, green, black}, 3.0);
  chart.SetColorMode(1);
  chart.SetContourLabelFlag(1);
  chart.SetLineStyle(3);
  chart.SetLineWidth(5);
  chart.SetOutlineWidth(4.0);
  ExpectContours(Drawn(), {2, 7}, {red, green}, 3.0);
  EXPECT_EQ(WidthInUse(), 1.0F);
  EXPECT_EQ(PatternInUse(), PatternOf(0));
  EXPECT_EQ(gl.GetColorMode(), 1);
}

TEST_F(ContourChart, ColorsOfSegmentsAreNotUsed) {
  SetUpContours({2, 7}, {red, green, black}, 3.0);
  chart.SetSegmentColorMode(1);
  ExpectContours(Drawn(), {2, 7}, {red, green}, 3.0);
}

TEST_F(ContourChart, LogarithmicAxes) {
  transform.SetScale({1, 0, 1, 0}, {100, 10, 1000, 0});
  transform.SetAxisScaleMode(0, 1);
  transform.SetAxisScaleMode(2, 1);
  const std::array<double, 4> heights{0, 99, 0, 99};
  const CPolysurface mesh(2, 2, 1, 0, 100, 10, heights.data(), 1);
  const double level = 9.0;
  chart.ContourPolysurface3D(&mesh, &level, std::array{red, green}.data(), 1, 100.0, 0);
  const auto drawn = Drawn();
  ASSERT_EQ(drawn.size(), 2U);
  // Interpolated in the heights' own units: x = 1 + 9, which is 1 of 0 to 2; z = log10(100).
  for (const auto& line : drawn) {
    for (const auto& vertex : line.vertices) {
      EXPECT_NEAR(vertex.x, Window({1, 0, 2}).x, 1e-2);
      EXPECT_NEAR(vertex.y, Window({1, 0, 2}).y, 1e-2);
    }
  }
}

TEST_F(ContourChart, ZeroContoursDrawNothing) {
  SetUpContours({}, {red}, 0.0);
  EXPECT_TRUE(Drawn().empty());
  SetUpContours({2}, {red, green}, 0.0);
  for (const int count : {0, -1, -2147483647}) {
    chart.SetNumContours(count);
    EXPECT_TRUE(Drawn().empty()) << count;
  }
}

TEST_F(ContourChart, MoreContoursThanValuesAreThoseWithValues) {
  SetUpContours({2, 7}, {red, green, black}, 3.0);
  for (const int count : {3, 1000000, 2147483647}) {
    chart.SetNumContours(count);
    ExpectContours(Drawn(), {2, 7}, {red, green}, 3.0);
  }
  chart.SetNumContours(1);
  ExpectContours(Drawn(), {2}, {red}, 3.0);
  chart.SetNumContours(2);
  chart.DeleteContourValueStorage();
  EXPECT_TRUE(Drawn().empty());
}

TEST_F(ContourChart, MissingColorsAreThatOfTheOutlines) {
  SetUpContours({2, 7}, {red, green, black}, 3.0);
  chart.SetOutlineColor(yellow);
  chart.DeleteContourColorsStorage();
  ExpectContours(Drawn(), {2, 7}, {yellow, yellow}, 3.0);
}

TEST_F(ContourChart, BarsMayHaveBeenThereBefore) {
  const std::array<double, 3> ind{1, 4, 7};
  const std::array<double, 3> dep{5, 8, 3};
  const std::array<RGBDType, 3> bars{green, red, blue};
  chart.BarChart25D(ind.data(), dep.data(), 0, 4, 3, 2, 3, red, yellow, 0, 0, 0);
  chart.InitSegmentColorsStorage(bars.data());
  std::vector<double> levels;
  std::vector<RGBDType> colors{green, red, blue};
  for (int i = 0; i < 20; ++i) levels.push_back(0.25 + i * 0.45);
  colors.resize(20, yellow);
  const CPolysurface mesh = Slope();
  // The colours of the bars are left for the first three heights; the others have none.
  chart.ContourPolysurface3D(&mesh, levels.data(), nullptr, 20, 3.0, 0);
  ExpectContours(Drawn(), levels, colors, 3.0);
  // The values of the bars are left for the first three of 20 heights.
  chart.BarChart25D(ind.data(), dep.data(), 0, 4, 3, 2, 3, red, yellow, 0, 0, 0);
  chart.ContourPolysurface3D(&mesh, nullptr, nullptr, 20, 3.0, 0);
  ExpectContours(Drawn(), {1, 4, 7}, colors, 3.0);
}

TEST_F(ContourChart, TheMeshOfASurfaceMayBeKept) {
  const CPolysurface mesh = Slope();
  chart.PolysurfaceChart3D(&mesh);
  const double level = 5.5;
  chart.ContourPolysurface3D(nullptr, &level, std::array{red, green}.data(), 1, 3.0, 0);
  ExpectContours(Drawn(), {5.5}, {red}, 3.0);
  chart.SetChartType(51);
  EXPECT_EQ(Drawn().size(), 2U);  // the two triangles again
}

TEST_F(ContourChart, LinesAreClippedWithTheSeries) {
  SetUpContours({2}, {red, green}, 12.0);  // a plane above the scale
  EXPECT_EQ(Drawn().size(), 2U);
  chart.SetClipping(1);
  EXPECT_TRUE(Drawn().empty());
  EXPECT_EQ(transform.GetClipping(), 0);
}

TEST_F(ContourChart, PlanesWithoutAPlaceDrawNothing) {
  SetUpContours({2}, {red, green}, std::numeric_limits<double>::quiet_NaN());
  EXPECT_TRUE(Drawn().empty());
}

TEST_F(ContourChart, MemoryThatRunsOutIsReported) {
  gl.SetGathering(0);  // what gathering takes is no part of a contour
  SetUpContours({2, 7}, {red, green, black}, 3.0);
  chart.SetClipping(1);
  const auto errorWithout = [&](int allocation) {
    return Catch([&] {
      const AllocationFailure failure(allocation);
      chart.DrawChartObj();
    });
  };
  // The colours, then the work data: flags and chain of the polygons.
  EXPECT_EQ(errorWithout(1), (CaughtError{3, 5, "DrawContourPolysurface3D"}));
  EXPECT_EQ(errorWithout(2), (CaughtError{2, 7, "InitContour"}));
  EXPECT_EQ(errorWithout(3), (CaughtError{2, 7, "InitContour"}));
  EXPECT_FALSE(glIsEnabled(GL_CLIP_PLANE0));
  EXPECT_EQ(transform.GetClipping(), 0);
  EXPECT_EQ(Drawn().size(), 4U);
}

}  // namespace
