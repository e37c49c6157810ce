#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>
#include <numbers>
#include <random>
#include <vector>

#include "orvalix/surface/polysurface.h"
#include "support/allocation_failure.h"
#include "support/caught_error.h"
#include "support/temporary_file.h"
#include "surface/mesh_check.h"

namespace {

using orvalix::test::BorderEdges;
using orvalix::test::Catch;
using orvalix::test::CaughtError;
using orvalix::test::Corners;
using orvalix::test::CornersOf;
using orvalix::test::ExpectDelaunayTriangles;
using orvalix::test::ExpectWholeDelaunay;
using orvalix::test::kNoError;
using orvalix::test::NeighborsOf;
using orvalix::test::SortedTriangles;
using orvalix::test::Triangulated;

using Points = std::vector<point3Dtype>;
using Triangles = std::vector<Corners>;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kLargest = std::numeric_limits<double>::max();
constexpr double kSmallest = std::numeric_limits<double>::denorm_min();
constexpr Corners kNone{-1, -1, -1};

/// A square of 4 by 4, its corners anticlockwise, and its centre as point 4.
const Points kSquareWithCentre{
    {0, 0, 1, 2}, {4, 0, 3, 4}, {4, 4, 5, 6}, {0, 4, 7, 8}, {2, 2, 9, 9}};

/// Its triangles: one per side, each with the centre.
const Triangles kFourTriangles{{0, 1, 4}, {0, 4, 3}, {1, 2, 4}, {2, 3, 4}};

Points FirstOf(const Points& points, std::size_t count) {
  return {points.begin(), points.begin() + static_cast<std::ptrdiff_t>(count)};
}

/// The points as seen from elsewhere: x * scale + dx and so on.
Points Moved(Points points, double scale, double dx, double dy) {
  for (point3Dtype& point : points) point = {point.x * scale + dx, point.y * scale + dy, 0, 0};
  return points;
}

bool AreSame(const CPolysurface& mesh, const Points& points) {
  return std::memcmp(mesh.GetPSPoints(), points.data(), points.size() * sizeof(point3Dtype)) == 0;
}

// --- few points ---

TEST(Delaunay, ThreePointsAreATriangle) {
  const CPolysurface mesh = Triangulated({{0, 0, 0, 0}, {1, 3, 0, 0}, {5, 0, 0, 0}});
  EXPECT_EQ(SortedTriangles(mesh), (Triangles{{0, 2, 1}}));  // anticlockwise
  EXPECT_EQ(NeighborsOf(mesh, 0), kNone);
}

TEST(Delaunay, TrianglesAreBlueAndWhite) {
  const CPolysurface mesh = Triangulated(kSquareWithCentre);
  for (int t = 0; t < 4; ++t) {
    int count = 0;
    RGBDType first{};
    RGBDType second{};
    mesh.GetPSPolygonIndices(t, nullptr, count, first, second);
    EXPECT_EQ(count, 3);
    EXPECT_EQ(std::memcmp(&first, std::array{0.0, 0.0, 1.0, 1.0}.data(), sizeof first), 0);
    EXPECT_EQ(std::memcmp(&second, std::array{1.0, 1.0, 1.0, 1.0}.data(), sizeof second), 0);
  }
}

TEST(Delaunay, ASquareHasTwoTriangles) {
  const CPolysurface mesh = Triangulated(FirstOf(kSquareWithCentre, 4));
  const Triangles rising{{0, 1, 2}, {0, 2, 3}};
  const Triangles falling{{0, 1, 3}, {1, 2, 3}};
  const Triangles found = SortedTriangles(mesh);
  EXPECT_TRUE(found == rising || found == falling);
  ExpectWholeDelaunay(mesh);
}

TEST(Delaunay, NeighborsLieAcrossTheEdges) {
  const CPolysurface mesh = Triangulated(kSquareWithCentre);
  EXPECT_EQ(SortedTriangles(mesh), kFourTriangles);
  ExpectWholeDelaunay(mesh);
  EXPECT_EQ(BorderEdges(mesh), 4);
  // Records without a polygon have no neighbours: 12 of them, 4 in use.
  EXPECT_EQ(mesh.GetPSMaxPolygons(), 12);
  EXPECT_EQ(mesh.GetPSNumPolygons(), 4);
  EXPECT_EQ(NeighborsOf(mesh, 4), kNone);
  EXPECT_EQ(NeighborsOf(mesh, 11), kNone);
}

TEST(Delaunay, NeighborsAreMadeOnRequestOnly) {
  CPolysurface mesh = Triangulated(kSquareWithCentre);
  mesh.DelaunaySurface(0);
  EXPECT_EQ(mesh.GetPSNumPolygons(), 4);
  for (int t = 0; t < 4; ++t) EXPECT_EQ(NeighborsOf(mesh, t), kNone);
  mesh.DelaunaySurface(-3);
  EXPECT_NE(NeighborsOf(mesh, 0), kNone);
}

TEST(Delaunay, OneOrTwoPointsHaveNoTriangle) {
  for (const std::size_t count : {1U, 2U}) {
    CPolysurface mesh = Triangulated(FirstOf(kSquareWithCentre, count));
    EXPECT_EQ(mesh.GetPSNumPolygons(), 0);
    mesh.AddPolysurfacePolygon(0, Corners{0, 0, 0}.data(), 3, {}, {});
    mesh.DelaunaySurface(1);
    EXPECT_EQ(mesh.GetPSNumPolygons(), 0);  // the list is emptied even so
    EXPECT_TRUE(AreSame(mesh, FirstOf(kSquareWithCentre, count)));
  }
}

TEST(Delaunay, NothingToTriangulateChangesNothing) {
  CPolysurface closed;
  closed.DelaunaySurface(1);
  EXPECT_EQ(closed.GetPSNumPolygons(), 0);
  CPolysurface noPoints(0, 2, 3);
  noPoints.AddPolysurfacePolygon(0, Corners{1, 2, 3}.data(), 3, {}, {});
  noPoints.DelaunaySurface(1);
  EXPECT_EQ(noPoints.GetPSNumPolygons(), 1);
}

// --- points that are special ---

TEST(Delaunay, PointsOnALineHaveNoTriangles) {
  Points vertical;
  Points horizontal;
  Points diagonal;
  Points steep;
  for (int i = 0; i < 1000; ++i) {
    const double at = i * 7 % 1000;
    vertical.push_back({3, at, 0, 0});
    horizontal.push_back({at, -3, 0, 0});
    diagonal.push_back({at, -at, 0, 0});
    steep.push_back({at, 3 * at, 0, 0});
  }
  for (const Points& points : {vertical, horizontal, diagonal, steep}) {
    const CPolysurface mesh = Triangulated(points);
    EXPECT_EQ(mesh.GetPSNumPolygons(), 0);
    EXPECT_TRUE(AreSame(mesh, points));
  }
}

TEST(Delaunay, PointsAtOnePlaceHaveNoTriangles) {
  const Points points(100, {3.7, -1e300, 1, 2});
  const CPolysurface mesh = Triangulated(points);
  EXPECT_EQ(mesh.GetPSNumPolygons(), 0);
  EXPECT_TRUE(AreSame(mesh, points));
}

TEST(Delaunay, OneOfPointsThatCoincideGetsTheTriangles) {
  Points points = kSquareWithCentre;
  for (int copies = 0; copies < 3; ++copies) {
    for (std::size_t i = 0; i < 5; ++i) points.push_back(kSquareWithCentre[i]);
  }
  const CPolysurface mesh = Triangulated(points);
  ExpectWholeDelaunay(mesh);
  Triangles triangles = SortedTriangles(mesh);
  EXPECT_EQ(triangles.size(), 4U);
  // The same four places in every triangle, whichever copy they are.
  std::vector<int> uses(20);
  for (const Corners& corners : triangles) {
    for (const int corner : corners) ++uses[static_cast<std::size_t>(corner)];
  }
  for (std::size_t place = 0; place < 5; ++place) {
    int used = 0;
    for (std::size_t copy = place; copy < 20; copy += 5) used += uses[copy] > 0 ? 1 : 0;
    EXPECT_EQ(used, 1) << place;
  }
}

TEST(Delaunay, PointsThatAreNowhereAreLeftOut) {
  Points points = kSquareWithCentre;
  for (const double bad : {kNaN, kInfinity, -kInfinity}) {
    points.push_back({bad, 1, 0, 0});
    points.insert(points.begin() + 5, {1, bad, 0, 0});
    points.push_back({bad, bad, 0, 0});
  }
  const CPolysurface mesh = Triangulated(points);
  EXPECT_EQ(SortedTriangles(mesh), kFourTriangles);
  EXPECT_TRUE(AreSame(mesh, points));
  // Heights and values may be anything.
  Points heights = kSquareWithCentre;
  for (point3Dtype& point : heights) point.z = point.v = kNaN;
  EXPECT_EQ(SortedTriangles(Triangulated(heights)), kFourTriangles);
}

TEST(Delaunay, OnlyPointsThatAreNowhereHaveNoTriangles) {
  EXPECT_EQ(Triangulated(Points(5, {kNaN, 1, 0, 0})).GetPSNumPolygons(), 0);
  EXPECT_EQ(Triangulated(Points(5, {kInfinity, -kInfinity, 0, 0})).GetPSNumPolygons(), 0);
  EXPECT_EQ(Triangulated(Points(5, {kLargest, kLargest, 0, 0})).GetPSNumPolygons(), 0);
}

TEST(Delaunay, ExtentsMayBeAnything) {
  const double quarter = kLargest / 4;
  for (const Points& points : {
           Moved(kSquareWithCentre, kSmallest, 0, 0),     // the four smallest numbers
           Moved(kSquareWithCentre, 1e-300, 0, 0),        //
           Moved(kSquareWithCentre, 0x1p-20, 1e9, -1e9),  // the step of doubles at 1e9 is 2^-23
           Moved(kSquareWithCentre, quarter, 0, 0),       // up to the largest number
           Moved(Moved(kSquareWithCentre, 1, -2, -2), quarter * 2, 0, 0),  // extent beyond it
           Moved(kSquareWithCentre, 0x1p1021, -0x1p1022, 0),               //
       }) {
    const CPolysurface mesh = Triangulated(points);
    EXPECT_EQ(SortedTriangles(mesh), kFourTriangles) << points[1].x;
    EXPECT_TRUE(AreSame(mesh, points));
  }
}

TEST(Delaunay, NearbyPointsFarOutAreToldApart) {
  // 30 by 30 points, about 1/1000 apart, a milliard away: on whole multiples of 2^-10.
  Points points;
  for (int i = 0; i < 900; ++i) {
    points.push_back({1e9 + i % 30 * 0x1p-10, -1e9 + i / 30 * 0x1p-10, 0, 0});
  }
  const CPolysurface mesh = Triangulated(points);
  EXPECT_TRUE(AreSame(mesh, points));
  // The same mesh where its coordinates are small whole numbers.
  CPolysurface moved = mesh;
  for (int i = 0; i < 900; ++i) {
    moved.SetOnePolysurfacePoint(i, {std::floor(i % 30), std::floor(i / 30), 0, 0});
  }
  ExpectWholeDelaunay(moved);
}

TEST(Delaunay, PointsCloserThanTheGridCoincide) {
  // Of an extent of 1 the grid has steps of 2^-52: 2^-54 is rounded to 0, 2^-52 isn't.
  Points points{{0, 0, 0, 0}, {1, 0, 0, 0}, {1, 1, 0, 0}, {0, 1, 0, 0}, {0x1p-54, 0, 0, 0}};
  EXPECT_EQ(Triangulated(points).GetPSNumPolygons(), 2);
  points[4].x = 0x1p-52;
  EXPECT_EQ(Triangulated(points).GetPSNumPolygons(), 3);
}

TEST(Delaunay, TrianglesTooFlatForTheEnclosingOneAreMissing) {
  // The circle through (0, 0), (1, 0) and (1/2, -h) has a radius of about 1 / 8h: for h = 1/128 it
  // is 16 wide and stays clear of corners 100 away, for h = 1/4096 it is 512 wide and holds them.
  Points points{{0, 0, 0, 0}, {1, 0, 0, 0}, {0.5, 0x1p-7, 0, 0}};
  EXPECT_EQ(Triangulated(points).GetPSNumPolygons(), 1);
  points[2].y = 0x1p-12;
  EXPECT_EQ(Triangulated(points).GetPSNumPolygons(), 0);
}

// --- the mesh around ---

TEST(Delaunay, PointsStayBitByBit) {
  std::mt19937_64 random(3);
  std::uniform_real_distribution<double> uniform(-1e5, 1e-3);
  Points points(1000);
  for (point3Dtype& point : points) {
    point = {uniform(random), uniform(random), uniform(random), uniform(random)};
  }
  CPolysurface mesh(points.data(), 0, 1000);
  const point3Dtype spare{1, 2, 3, 4};
  for (int i = 1000; i < 1004; ++i) mesh.SetOnePolysurfacePoint(i, spare);
  points.insert(points.end(), 4, spare);
  mesh.DelaunaySurface(1);
  EXPECT_GT(mesh.GetPSNumPolygons(), 1900);
  EXPECT_TRUE(AreSame(mesh, points));
}

TEST(Delaunay, AgainGivesTheSame) {
  std::mt19937_64 random(4);
  Points points(500);
  for (point3Dtype& point : points)
    point = {std::floor(random() % 50), std::floor(random() % 50), 0, 0};
  CPolysurface mesh = Triangulated(points);
  Triangles triangles;
  Triangles neighbors;
  for (int t = 0; t < mesh.GetPSNumPolygons(); ++t) {
    triangles.push_back(CornersOf(mesh, t));
    neighbors.push_back(NeighborsOf(mesh, t));
  }
  mesh.DelaunaySurface(1);
  ASSERT_EQ(mesh.GetPSNumPolygons(), static_cast<int>(triangles.size()));
  for (std::size_t t = 0; t < triangles.size(); ++t) {
    EXPECT_EQ(CornersOf(mesh, static_cast<int>(t)), triangles[t]);
    EXPECT_EQ(NeighborsOf(mesh, static_cast<int>(t)), neighbors[t]);
  }
}

TEST(Delaunay, ReplacesThePolygonsThatThereWere) {
  CPolysurface mesh(kSquareWithCentre.data(), 0, 5);
  for (int t = 0; t < 12; ++t) {
    mesh.AddPolysurfacePolygon(t, Corners{0, 1, 2}.data(), 3, {1, 1, 1, 1}, {});
  }
  mesh.DelaunaySurface(0);
  EXPECT_EQ(mesh.GetPSNumPolygons(), 4);
  int count = -1;
  mesh.GPSPolygon(4, nullptr, count);
  EXPECT_EQ(count, 0);
  // Their vertices made room again: 8 more triangles fit.
  for (int t = 4; t < 12; ++t) {
    mesh.AddPolysurfacePolygon(t, Corners{0, 1, 2}.data(), 3, {}, {});
  }
  EXPECT_EQ(mesh.GetPSNumPolygons(), 12);
}

TEST(Delaunay, AGridKeepsItsDescription) {
  // 3 by 3 points have 8 triangles either way, but not the same ones in the same order.
  Points points;
  for (int i = 0; i < 9; ++i) points.push_back({std::floor(i % 3), std::floor(i / 3), 0, 0});
  CPolysurface mesh(points.data(), 3, 3, 1);
  mesh.DelaunaySurface(1);
  ASSERT_EQ(mesh.GetPSNumPolygons(), 8);
  EXPECT_EQ(mesh.GetRGRows(), 3);
  EXPECT_EQ(mesh.GetRGMaxX(), 2.0);
  EXPECT_EQ(mesh.GetGridType(), 1);
  mesh.CreateRGAdjacentPolygonList();  // leaves the neighbours alone
  ExpectWholeDelaunay(mesh);
  mesh.DelaunaySurface(0);
  mesh.CreateRGAdjacentPolygonList();  // and makes none
  for (int t = 0; t < 8; ++t) EXPECT_EQ(NeighborsOf(mesh, t), kNone);
  mesh.ConvertRG2PS(nullptr, 3, 3, 3);
  mesh.CreateRGAdjacentPolygonList();
  EXPECT_EQ(NeighborsOf(mesh, 0), (Corners{-1, 1, -1}));
}

TEST(Delaunay, IsSavedWithItsNeighbors) {
  const CPolysurface mesh = Triangulated(kSquareWithCentre);
  const orvalix::test::TemporaryFile file;
  mesh.Save(CString(file.Path()));
  const CPolysurface loaded((CString(file.Path())));
  EXPECT_EQ(SortedTriangles(loaded), kFourTriangles);
  ExpectWholeDelaunay(loaded);
}

// --- failures ---

TEST(Delaunay, RefusesMeshesWithoutRoom) {
  const CaughtError expected{19, 18, "DelaunaySurface"};
  // Room for 3 polygons, for 11 vertices (11 polygons of 1), for 12 of each.
  for (const auto& [polygons, perPolygon] :
       {std::pair{3, 4}, std::pair{11, 1}, std::pair{0, 3}, std::pair{12, 0}}) {
    CPolysurface mesh(5, polygons, perPolygon);
    mesh.SetPolysurfacePoints(kSquareWithCentre.data(), 0, 5);
    const bool fits = polygons > 0 && perPolygon > 0;
    if (fits) mesh.AddPolysurfacePolygon(0, Corners{2, 1, 0}.data(), 3, {}, {});
    EXPECT_EQ(Catch([&] { mesh.DelaunaySurface(1); }), expected);
    EXPECT_EQ(mesh.GetPSNumPolygons(), fits ? 1 : 0);  // as it was
    if (fits) {
      EXPECT_EQ(CornersOf(mesh, 0), (Corners{2, 1, 0}));
    }
    EXPECT_TRUE(AreSame(mesh, kSquareWithCentre));
  }
  for (const auto& [polygons, perPolygon] : {std::pair{4, 3}, std::pair{12, 1}}) {
    CPolysurface mesh(5, polygons, perPolygon);
    mesh.SetPolysurfacePoints(kSquareWithCentre.data(), 0, 5);
    EXPECT_EQ(Catch([&] { mesh.DelaunaySurface(1); }), kNoError);
    EXPECT_EQ(SortedTriangles(mesh), kFourTriangles);
  }
  CPolysurface withoutPolygons(1, 0, 0);  // one point needs no room
  EXPECT_EQ(Catch([&] { withoutPolygons.DelaunaySurface(1); }), kNoError);
}

TEST(Delaunay, ReportsMemoryThatRunsOut) {
  CPolysurface mesh(kSquareWithCentre.data(), 0, 5);
  mesh.AddPolysurfacePolygon(0, Corners{2, 1, 0}.data(), 3, {}, {});
  std::vector<std::string> places;
  const int failures = orvalix::test::FailEachAllocation([&] {
    const CaughtError caught = Catch([&] { mesh.DelaunaySurface(1); });
    if (caught == kNoError) return;
    EXPECT_EQ(caught, (CaughtError{2, 18, caught.place}));
    places.push_back(caught.place);
    EXPECT_EQ(mesh.GetPSNumPolygons(), 1);
    EXPECT_EQ(CornersOf(mesh, 0), (Corners{2, 1, 0}));
    EXPECT_TRUE(AreSame(mesh, kSquareWithCentre));
  });
  EXPECT_EQ(static_cast<int>(places.size()), failures);
  // List and stack; pairs; coordinates, triangles and their new numbers; neighbours.
  EXPECT_EQ(places, (std::vector<std::string>{"InitDelaunay", "InitDelaunay", "bsort", "Deltri",
                                              "Deltri", "Deltri", "DelaunaySurface"}));
  EXPECT_EQ(SortedTriangles(mesh), kFourTriangles);
}

}  // namespace
