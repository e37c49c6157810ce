#include "orvalix/series/contour_3d.h"

#include <array>

#include "orvalix/render/transform_3d.h"
#include "orvalix/series/level_crossings_internal.h"
#include "series/contour_fixture.h"
#include "support/allocation_failure.h"
#include "support/caught_error.h"

namespace {

using namespace orvalix::test;

class Contour3D : public ContourTest {
 protected:
  static double Slope(double x, double) { return x + 0.01; }

  /// The band of a value among heights.
  static int Band(const std::vector<double>& levels, double value) {
    const CContour3D contour(nullptr, nullptr, nullptr, levels.data(), nullptr,
                             static_cast<int>(levels.size()), 0.0, 0);
    int band = -99;
    contour.GetContourBounds(value, band);
    return band;
  }
};

TEST_F(Contour3D, BandsLieBetweenHeights) {
  const std::vector<double> levels{1, 2, 4};
  EXPECT_EQ(Band(levels, 0.9), 0);
  EXPECT_EQ(Band(levels, 1.0), 1);
  EXPECT_EQ(Band(levels, 1.9), 1);
  EXPECT_EQ(Band(levels, 2.0), 2);
  EXPECT_EQ(Band(levels, 3.9), 2);
  EXPECT_EQ(Band(levels, 4.0), 3);
  EXPECT_EQ(Band(levels, 100.0), 3);
  EXPECT_EQ(Band(levels, kInfinity), 3);
  EXPECT_EQ(Band(levels, -kInfinity), 0);
  EXPECT_EQ(Band(levels, kNaN), 0);
}

TEST_F(Contour3D, OneHeightHasTwoBands) {
  EXPECT_EQ(Band({2.0}, 1.0), 0);
  EXPECT_EQ(Band({2.0}, 2.0), 1);
  EXPECT_EQ(Band({2.0}, 3.0), 1);
  EXPECT_EQ(Band({}, 3.0), 0);
}

TEST_F(Contour3D, BandsOfHeightsInAnyOrder) {
  // 6 is not below the first and not at the last; it is in the first rise that reaches it.
  EXPECT_EQ(Band({5, 1, 8, 9}, 6.0), 2);
  EXPECT_EQ(Band({5, 1, 8, 9}, 4.0), 0);  // below the first, wherever else it may lie
  EXPECT_EQ(Band({1, 9, 2}, 5.0), 3);     // at or above the last
  EXPECT_EQ(Band({1, 3, 2, 9}, 2.5), 1);  // the first of two
  EXPECT_EQ(Band({5, kNaN, 9}, 6.0), 0);  // no rise reaches it
  EXPECT_EQ(Band({kNaN, 5, 9}, 6.0), 2);
  EXPECT_EQ(Band({1, 5, 5, 9}, 5.0), 3);
}

TEST_F(Contour3D, CountsHeightsAndPolygons) {
  const auto mesh = GridOf(3, 3, Slope);
  // Each of the two rows has its two triangles of one column crossed.
  const std::vector<double> levels{0.5, -0.5, 7.0};
  CContour3D contour(nullptr, nullptr, &mesh, levels.data(), nullptr, 3, 0.0, 0);
  EXPECT_EQ(contour.GetNumLevels(), 3);
  EXPECT_EQ(contour.GetNumCrossings(), 8);
  contour.InitContour(nullptr, nullptr, &mesh, levels.data(), nullptr, 1, 0.0, 0);
  EXPECT_EQ(contour.GetNumLevels(), 1);
  EXPECT_EQ(contour.GetNumCrossings(), 4);
}

TEST_F(Contour3D, NothingToDoIsNoError) {
  const auto mesh = GridOf(3, 3, Slope);
  const CPolysurface closed;
  const std::vector<double> levels{0.5};
  struct Case {
    const CPolysurface* surface;
    const double* values;
    int count;
    int levelsDone;
  };
  for (const Case& with : {Case{&mesh, levels.data(), 0, 0}, Case{&mesh, levels.data(), -5, 0},
                           Case{&mesh, nullptr, 3, 0}, Case{nullptr, levels.data(), 1, 0},
                           Case{&closed, levels.data(), 1, 1}}) {
    const auto drawn = CaptureFeedback([&] {
      const CContour3D contour(&gl, nullptr, with.surface, with.values, nullptr, with.count, 0.0,
                               1);
      EXPECT_EQ(contour.GetNumLevels(), with.levelsDone);
      EXPECT_EQ(contour.GetNumCrossings(), 0);
      int band = -1;
      contour.GetContourBounds(0.0, band);
      EXPECT_EQ(band, 0);
    });
    EXPECT_TRUE(drawn.empty());
  }
}

TEST_F(Contour3D, ZeroContoursNeedNoMemory) {
  const auto mesh = GridOf(3, 3, Slope);
  const double level = 0.5;
  const AllocationMeter meter;
  const CContour3D contour(nullptr, nullptr, &mesh, &level, nullptr, 0, 0.0, 0);
  EXPECT_EQ(meter.Largest(), 0U);
}

TEST_F(Contour3D, DrawsInWorkingCoordinates) {
  CTransform3D transform(&gl, {1, 0, 1, 0}, {100, 1, 100, 0});
  transform.SetAxisScaleMode(0, 1);
  transform.SetAxisScaleMode(2, 1);
  CPolysurface mesh(3, 1, 3);
  const std::array<point3Dtype, 3> points{{{1, 0.25, 0, 0}, {19, 0.25, 4, 0}, {1, 0.75, 2, 0}}};
  mesh.SetPolysurfacePoints(points.data(), 0, 3);
  mesh.AddPolysurfacePolygon(0, std::array{0, 1, 2}.data(), 3, {}, {});
  const double level = 2.0;
  gl.LoadIdentity();
  const auto drawn = CaptureFeedback(
      [&] { const CContour3D contour(&gl, &transform, &mesh, &level, nullptr, 1, 1.0, 0); });
  ASSERT_EQ(drawn.size(), 1U);
  // Crossed at x = 10, where log10(x) = 1, halfway along the first edge; and in the third point,
  // where both of its edges are at 2. The first two of these are taken. z: log10(1) = 0.
  EXPECT_NEAR(drawn[0].vertices[0].x, 200.0, 1e-2);
  EXPECT_NEAR(drawn[0].vertices[0].y, 125.0, 1e-2);
  EXPECT_NEAR(drawn[0].vertices[1].x, 100.0, 1e-2);
  EXPECT_NEAR(drawn[0].vertices[1].y, 175.0, 1e-2);
  for (const auto& vertex : drawn[0].vertices) EXPECT_NEAR(vertex.z, 0.5, 1e-6);
}

TEST_F(Contour3D, MemoryThatRunsOutIsReported) {
  const auto mesh = GridOf(4, 4, Slope);
  const std::vector<double> levels{0.5, -0.5, 0.1};
  int errors = 0;
  const int failures = FailEachAllocation([&] {
    const CaughtError error = Catch([&] {
      const CContour3D contour(nullptr, nullptr, &mesh, levels.data(), nullptr, 3, 0.0, 0);
    });
    if (error == kNoError) return;
    EXPECT_EQ(error, (CaughtError{2, 7, "InitContour"}));
    ++errors;
  });
  EXPECT_GE(failures, 2);  // the places and the chain at least
  EXPECT_EQ(errors, failures);
}

TEST_F(Contour3D, MemoryIsBoundByTheMesh) {
  // Heights that cross everything: lists of all crossings would hold 5000 * 800 numbers.
  const auto mesh = GridOf(21, 21, [](double x, double y) {
    return std::lround((x + y) * 10.0) % 2 == 0 ? -1000.0 : 1000.0;
  });
  std::vector<double> levels;
  for (int i = 0; i < 5000; ++i) levels.push_back(-900.0 + i * 0.3);
  orvalix::LevelCrossings crossings(mesh, levels);
  std::size_t total = 0;
  for (const auto& list : crossings.Lists()) {
    EXPECT_EQ(list.size(), 800U);
    total += list.size();
  }
  // 1024 heights of one pass, halved until there are no more than 16384: 16 * 800.
  EXPECT_EQ(total, 12800U);
  EXPECT_EQ(Crossings(mesh, levels), 5000LL * 800);
}

TEST_F(Contour3D, CrossingsAreFoundForEachHeightInOrder) {
  const auto mesh = GridOf(3, 3, Slope);  // two triangles of each cell, from -1 to 1 along x
  const std::vector<double> levels{0.5, kNaN, -0.5, 9.0, 0.01};
  orvalix::LevelCrossings crossings(mesh, levels);
  const std::vector<std::vector<int>> expected{
      {2, 3, 6, 7}, {}, {0, 1, 4, 5}, {}, {0, 1, 2, 3, 4, 5, 6, 7}};
  std::vector<std::vector<int>> polygons;
  for (const auto& list : crossings.Lists()) {
    polygons.emplace_back();
    for (const auto& crossing : list) polygons.back().push_back(crossing.polygon);
  }
  EXPECT_EQ(polygons, expected);
  EXPECT_TRUE(orvalix::LevelCrossings(mesh, {}).Lists().empty());
}

/// Passes over all heights for every few of them would end only after minutes.
TEST_F(Contour3D, ManyHeightsOfASmallMeshAreFoundInOneGo) {
  const auto mesh = OnePolygon({{0, 0, 0, 0}, {1, 0, 1e6, 0}, {0, 1, 1e6, 0}});
  std::vector<double> levels;
  for (int i = 0; i < 500000; ++i) {
    levels.push_back(static_cast<double>(i * 7919LL % 500000) + 0.5);
  }
  EXPECT_EQ(Crossings(mesh, levels), 500000);
}

}  // namespace
