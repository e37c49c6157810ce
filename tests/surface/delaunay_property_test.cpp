/// Whether what triangulating yields is the Delaunay triangulation: for every set of few points of
/// a kind, and for many points.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <functional>
#include <random>
#include <utility>
#include <vector>

#include "orvalix/surface/polysurface.h"
#include "surface/mesh_check.h"

namespace {

using orvalix::test::CornersOf;
using orvalix::test::ExpectDelaunayTriangles;
using orvalix::test::ExpectWholeDelaunay;
using orvalix::test::InCircle;
using orvalix::test::Triangulated;
using orvalix::test::WholeOf;

using Points = std::vector<point3Dtype>;
using Random = std::mt19937_64;

constexpr int kMany = 100000;

/// The extent of the sets of many points: a power of two, so that they lie on the grid exactly.
constexpr std::int64_t kSide = 1 << 24;

/// Expects that no point at all lies inside a triangle's circle.
void ExpectEmptyCircles(const CPolysurface& mesh) {
  for (int t = 0; t < mesh.GetPSNumPolygons(); ++t) {
    const auto [a, b, c] = CornersOf(mesh, t);
    for (int i = 0; i < mesh.GetPSNumPoints(); ++i) {
      EXPECT_LE(InCircle(WholeOf(mesh, a), WholeOf(mesh, b), WholeOf(mesh, c), WholeOf(mesh, i)),
                0);
    }
  }
}

double Below(Random& random, std::int64_t limit) {
  return static_cast<double>(random() % static_cast<std::uint64_t>(limit));
}

/// Points at whole places, and 512 on each side of the square around them. Those are 2^15 apart: a
/// triangle between two of them and a point 1 above has a circle of radius (2^14)^2 / 2 = 2^27, 8
/// times the side, so that no triangle on the border is too flat to be made.
Points InSquare(int count, const std::function<point3Dtype(int)>& place) {
  constexpr double kStep = 0x1p15;
  const double side = static_cast<double>(kSide);
  Points points;
  for (double at = 0; at < side; at += kStep) {
    for (const auto& [x, y] : {std::pair{at, 0.0}, std::pair{side, at}, std::pair{side - at, side},
                               std::pair{0.0, side - at}}) {
      points.push_back({x, y, 0, 0});
    }
  }
  for (int i = 0; i < count; ++i) {
    const point3Dtype point = place(i);
    points.push_back({std::clamp(std::floor(point.x), 0.0, side),
                      std::clamp(std::floor(point.y), 0.0, side), 0, 0});
  }
  return points;
}

TEST(DelaunayProperty, HoldsForFewPoints) {
  // On 6 by 6 places many coincide, lie on lines and on circles. No triangle there is so flat that
  // its circle would reach far: it is at most 43 wide, the product of three sides, the longest
  // being 50^(1/2), over twice the double area 1, while the corners are 500 away.
  Random random(1);
  for (int n = 1; n <= 40; ++n) {
    for (int repetition = 0; repetition < 100; ++repetition) {
      Points points(static_cast<std::size_t>(n));
      for (point3Dtype& point : points) point = {Below(random, 6), Below(random, 6), 0, 0};
      const CPolysurface mesh = Triangulated(points);
      ExpectWholeDelaunay(mesh);
      ExpectEmptyCircles(mesh);
    }
  }
}

TEST(DelaunayProperty, HoldsForEverySetOfFourPoints) {
  // Four of 3 by 3 places, in every order.
  for (int code = 0; code < 9 * 9 * 9 * 9; ++code) {
    Points points;
    for (int rest = code; points.size() < 4; rest /= 9) {
      points.push_back({std::floor(rest % 3), std::floor(rest / 3 % 3), 0, 0});
    }
    const CPolysurface mesh = Triangulated(points);
    ExpectWholeDelaunay(mesh);
    ExpectEmptyCircles(mesh);
  }
}

TEST(DelaunayProperty, HoldsForRandomPoints) {
  Random random(2);
  ExpectWholeDelaunay(Triangulated(InSquare(kMany, [&](int) -> point3Dtype {
    return {Below(random, kSide), Below(random, kSide), 0, 0};
  })));
}

TEST(DelaunayProperty, HoldsForRegularGrids) {
  // 257 by 257: steps of 2^16.
  ExpectWholeDelaunay(Triangulated(InSquare(257 * 257, [](int i) -> point3Dtype {
    return {65536.0 * (i % 257), 65536.0 * std::floor(i / 257), 0, 0};
  })));
}

TEST(DelaunayProperty, HoldsForClusters) {
  Random random(3);
  std::normal_distribution<double> normal(0, 300);
  std::vector<point3Dtype> centres(1000);
  for (point3Dtype& centre : centres) centre = {Below(random, kSide), Below(random, kSide), 0, 0};
  ExpectWholeDelaunay(Triangulated(InSquare(kMany, [&](int i) -> point3Dtype {
    const point3Dtype& centre = centres[static_cast<std::size_t>(i) % centres.size()];
    return {centre.x + normal(random), centre.y + normal(random), 0, 0};
  })));
}

TEST(DelaunayProperty, HoldsForManyDuplicates) {
  Random random(4);
  ExpectWholeDelaunay(Triangulated(InSquare(kMany, [&](int) -> point3Dtype {
    return {65536.0 * Below(random, 100), 65536.0 * Below(random, 100), 0, 0};
  })));
}

TEST(DelaunayProperty, HoldsForCirclesAndSpirals) {
  const double half = static_cast<double>(kSide) / 2;
  ExpectWholeDelaunay(Triangulated(InSquare(20000, [&](int i) -> point3Dtype {
    return {half + half * std::cos(i), half + half * std::sin(i), 0, 0};
  })));
  ExpectWholeDelaunay(Triangulated(InSquare(20000, [&](int i) -> point3Dtype {
    const double radius = half * i / 20000;
    return {half + radius * std::cos(i * 0.01), half + radius * std::sin(i * 0.01), 0, 0};
  })));
}

TEST(DelaunayProperty, HoldsForTwoFarClusters) {
  Random random(5);
  ExpectWholeDelaunay(Triangulated(InSquare(kMany, [&](int i) -> point3Dtype {
    const double corner = i % 2 == 0 ? 0.0 : static_cast<double>(kSide - 1024);
    return {corner + Below(random, 1024), corner + Below(random, 1024), 0, 0};
  })));
}

TEST(DelaunayProperty, HoldsForThinStrips) {
  // Without corners: of flat triangles on the border some are missing.
  Random random(6);
  for (const bool upright : {false, true}) {
    Points points{{0, 0, 0, 0}, {0, 0, 0, 0}};
    (upright ? points[1].y : points[1].x) = static_cast<double>(kSide);
    for (int i = 0; i < kMany; ++i) {
      const double along = Below(random, kSide);
      const double across = Below(random, 200);
      points.push_back(upright ? point3Dtype{across, along, 0, 0}
                               : point3Dtype{along, across, 0, 0});
    }
    const CPolysurface mesh = Triangulated(points);
    EXPECT_GT(ExpectDelaunayTriangles(mesh), 0);
    EXPECT_GT(mesh.GetPSNumPolygons(), kMany);
  }
}

}  // namespace
