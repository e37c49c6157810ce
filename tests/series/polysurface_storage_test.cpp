#include <limits>

#include "series/chart_3d_fixture.h"
#include "support/allocation_failure.h"
#include "support/caught_error.h"
#include "support/temporary_file.h"

namespace {

using namespace orvalix::test;

class PolysurfaceStorage : public Chart3DTest {
 protected:
  /// One triangle: (1, 2, 3), (4, 2, 3), (4, 6, 5).
  static CPolysurface Triangle() {
    CPolysurface mesh(3, 1, 3);
    const std::array<point3Dtype, 3> points{{{1, 2, 3, 4}, {4, 2, 3, 5}, {4, 6, 5, 6}}};
    mesh.SetPolysurfacePoints(points.data(), 0, 3);
    mesh.AddPolysurfacePolygon(0, std::array{0, 1, 2}.data(), 3, {1, 0, 0, 1}, {0, 0, 1, 1});
    return mesh;
  }
  void ExpectTriangle() {
    chart.SetChartType(51);
    const auto drawn = Drawn();
    ASSERT_EQ(drawn.size(), 1U);
    ExpectPlaces(drawn[0], {{1, 2, 3}, {4, 2, 3}, {4, 6, 5}, {1, 2, 3}});
  }
};

TEST_F(PolysurfaceStorage, HoldsACopyOfItsOwn) {
  {
    CPolysurface mesh = Triangle();
    chart.InitPolysurfaceStorage(&mesh);
    mesh.SetOnePolysurfacePoint(0, {9, 9, 9, 9});
    mesh.ResetPolysurfacePolygons();
  }
  ExpectTriangle();
  const CPolysurface other(3, 1, 3);
  chart.SetPolysurface(&other);
  EXPECT_TRUE(Drawn().empty());
  EXPECT_EQ(chart.GetPolysurfacePoint(0).x, 0.0);
}

TEST_F(PolysurfaceStorage, NoMeshChangesNothing) {
  const CPolysurface mesh = Triangle();
  chart.InitPolysurfaceStorage(nullptr);
  chart.SetPolysurface(&mesh);
  chart.InitPolysurfaceStorage(nullptr);
  chart.SetPolysurface(nullptr);
  ExpectTriangle();
  chart.DeletePolysurfaceStorage();
  EXPECT_TRUE(Drawn().empty());
  chart.DeletePolysurfaceStorage();
}

TEST_F(PolysurfaceStorage, RefusesWhatNeverWasAnOpenMesh) {
  const CaughtError error{10, 5, "InitPolysurfaceStorage"};
  const CPolysurface mesh = Triangle();
  const CPolysurface never;
  chart.SetPolysurface(&mesh);
  EXPECT_EQ(Catch([&] { chart.InitPolysurfaceStorage(&never); }), error);
  EXPECT_EQ(Catch([&] { chart.SetPolysurface(&never); }), error);
  EXPECT_EQ(Catch([&] { chart.PolysurfaceChart3D(&never); }), error);
  EXPECT_EQ(Catch([&] { chart.PolysurfaceChart2D(&never, 0.0, 0); }), error);
  EXPECT_EQ(Catch([&] { chart.ContourPolysurface3D(&never, nullptr, nullptr, 0, 0.0, 0); }), error);
  EXPECT_EQ(Catch([&] { chart.SetContourStorage(&never, nullptr, nullptr, 0); }), error);
  EXPECT_EQ(chart.GetChartType(), 0);  // stored last, so not at all
  ExpectTriangle();
}

TEST_F(PolysurfaceStorage, TakesAMeshThatIsClosedAgain) {
  CPolysurface mesh = Triangle();
  mesh.ClosePolysurface();
  EXPECT_EQ(Catch([&] { chart.PolysurfaceChart3D(&mesh); }), kNoError);
  EXPECT_TRUE(Drawn().empty());
  EXPECT_EQ(chart.GetPolysurfacePoint(0).x, 0.0);
}

TEST_F(PolysurfaceStorage, ReportsMemoryThatRunsOutAndKeepsTheOldMesh) {
  const CPolysurface mesh = Triangle();
  const std::array<double, 9> heights{};
  const CPolysurface grid(3, 3, 0, 0, 1, 1, heights.data(), 1);  // with neighbours
  chart.SetPolysurface(&mesh);
  int errors = 0;
  const int failures = FailEachAllocation([&] {
    const CaughtError error = Catch([&] { chart.InitPolysurfaceStorage(&grid); });
    if (error == kNoError) return;
    EXPECT_EQ(error, (CaughtError{2, 5, "InitPolysurfaceStorage"}));
    EXPECT_EQ(chart.GetPolysurfacePoint(1).x, 4.0);
    ++errors;
  });
  EXPECT_EQ(chart.GetPolysurfacePoint(1).x, 0.5);
  EXPECT_EQ(errors, failures);
  EXPECT_GE(failures, 4);  // points, polygons, indices, neighbours
}

TEST_F(PolysurfaceStorage, PointsOfTheMesh) {
  EXPECT_EQ(chart.GetPolysurfacePoint(0).x, 0.0);
  chart.SetPolysurfacePoint(0, {7, 7, 7, 7});  // no mesh: nowhere
  const CPolysurface mesh = Triangle();
  chart.SetPolysurface(&mesh);
  EXPECT_EQ(chart.GetPolysurfacePoint(2).y, 6.0);
  EXPECT_EQ(chart.GetPolysurfacePoint(2).v, 6.0);
  for (const int outside : {-1, 7, 1000, std::numeric_limits<int>::max()}) {
    EXPECT_EQ(chart.GetPolysurfacePoint(outside).x, 0.0) << outside;
    chart.SetPolysurfacePoint(outside, {7, 7, 7, 7});
  }
  chart.SetPolysurfacePoint(6, {8, 8, 8, 8});  // the last of the four spare points
  EXPECT_EQ(chart.GetPolysurfacePoint(6).v, 8.0);
  ExpectTriangle();
  chart.SetPolysurfacePoint(0, {1, 2, 9, 0});
  const auto drawn = Drawn();
  ASSERT_EQ(drawn.size(), 1U);
  ExpectPlaces(drawn[0], {{1, 2, 9}, {4, 2, 3}, {4, 6, 5}, {1, 2, 9}});
}

TEST_F(PolysurfaceStorage, ContourStorageCopiesItsThreeParts) {
  const std::array<double, 2> levels{3.5, 4.5};
  const std::array<RGBDType, 3> colors{red, green, yellow};
  auto values = levels;
  const CPolysurface mesh = Triangle();
  chart.SetContourStorage(&mesh, values.data(), colors.data(), 2);
  values[0] = 99.0;
  EXPECT_EQ(chart.GetNumContours(), 2);
  chart.SetNumDataPnts(2);
  EXPECT_EQ(chart.GetContourValue(0), 3.5);
  EXPECT_EQ(chart.GetContourValue(1), 4.5);
  ExpectSameColor(chart.GetContourColor(2), yellow);
  ExpectTriangle();
  // Null leaves each of them, and the count is stored all the same.
  chart.SetContourStorage(nullptr, nullptr, nullptr, 1);
  EXPECT_EQ(chart.GetNumContours(), 1);
  EXPECT_EQ(chart.GetContourValue(1), 4.5);
  ExpectSameColor(chart.GetContourColor(2), yellow);
  ExpectTriangle();
}

TEST_F(PolysurfaceStorage, CopiesOfASeriesHaveMeshesOfTheirOwn) {
  const CPolysurface mesh = Triangle();
  chart.PolysurfaceChart3D(&mesh);
  CChartObj3D copy(chart);
  CChartObj3D assigned;
  assigned = chart;
  chart.SetPolysurfacePoint(0, {9, 9, 9, 9});
  EXPECT_EQ(copy.GetPolysurfacePoint(0).x, 1.0);
  EXPECT_EQ(assigned.GetPolysurfacePoint(0).x, 1.0);
  EXPECT_EQ(DrawnBy(copy).size(), 1U);
}

TEST_F(PolysurfaceStorage, DeletedMeshesAreNotSaved) {
  const CPolysurface mesh = Triangle();
  chart.PolysurfaceChart3D(&mesh);
  const std::size_t size = Saved(chart).size();
  chart.DeletePolysurfaceStorage();
  const Bytes record = Saved(chart);
  EXPECT_EQ(size, record.size() + Saved(mesh).size());
  CChartObj3D loaded;
  EXPECT_EQ(Catch([&] { LoadFrom(loaded, record); }), kNoError);
  EXPECT_EQ(Saved(loaded), record);
}

}  // namespace
