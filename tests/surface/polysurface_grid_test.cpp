#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <numeric>
#include <vector>

#include "orvalix/surface/polysurface.h"
#include "support/allocation_failure.h"
#include "support/caught_error.h"

namespace {

using orvalix::test::Catch;
using orvalix::test::CaughtError;
using orvalix::test::kNoError;

constexpr int kHuge = 2147483647;
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

using Ints = std::vector<int>;

/// The vertices of a polygon, in order.
Ints Corners(const CPolysurface& mesh, int polygon) {
  Ints indices(255);
  int count = 0;
  RGBDType first{};
  RGBDType second{};
  mesh.GetPSPolygonIndices(polygon, indices.data(), count, first, second);
  indices.resize(static_cast<std::size_t>(count));
  return indices;
}

Ints Neighbors(const CPolysurface& mesh, int polygon) {
  Ints neighbors{-7, -7, -7};
  mesh.GetAdjacentPolyList(polygon, neighbors.data());
  return neighbors;
}

point3Dtype PointOf(const CPolysurface& mesh, int index) {
  point3Dtype point{-1, -1, -1, -1};
  mesh.GetOnePolysurfacePoint(index, point);
  return point;
}

const Ints kNone{-1, -1, -1};

/// rows * columns points: x is 10 times the column, y 100 times the row, z and v tell the number.
std::vector<point3Dtype> GridPoints(int rows, int columns) {
  std::vector<point3Dtype> points;
  for (int row = 0; row < rows; ++row) {
    for (int column = 0; column < columns; ++column) {
      const double number = row * columns + column;
      points.push_back({10.0 * column, 100.0 * row, number, -number});
    }
  }
  return points;
}

CPolysurface GridOf(int rows, int columns, int type) {
  return {GridPoints(rows, columns).data(), rows, columns, type};
}

// --- grids of points ---

TEST(PolysurfaceGrid, QuadrilateralsGoRound) {
  const CPolysurface mesh = GridOf(2, 3, 0);
  EXPECT_EQ(mesh.GetPSNumPoints(), 6);
  EXPECT_EQ(mesh.GetPSMaxPolygons(), 2);
  EXPECT_EQ(mesh.GetPSNumPolygons(), 2);
  EXPECT_EQ(mesh.GetPSPointsPerPolygon(), 4);
  EXPECT_EQ(Corners(mesh, 0), (Ints{0, 1, 4, 3}));
  EXPECT_EQ(Corners(mesh, 1), (Ints{1, 2, 5, 4}));
  EXPECT_EQ(PointOf(mesh, 5).v, -5.0);
  EXPECT_EQ(mesh.GetGridType(), 0);
  EXPECT_EQ(mesh.GetEvenGridFlag(), 0);
}

TEST(PolysurfaceGrid, TrianglesHalveTheCells) {
  const CPolysurface mesh = GridOf(3, 2, 1);
  EXPECT_EQ(mesh.GetPSMaxPolygons(), 4);  // (2 * 2 - 2) * (3 - 1)
  EXPECT_EQ(mesh.GetPSNumPolygons(), 4);
  EXPECT_EQ(mesh.GetPSPointsPerPolygon(), 3);
  EXPECT_EQ(Corners(mesh, 0), (Ints{0, 1, 2}));
  EXPECT_EQ(Corners(mesh, 1), (Ints{1, 3, 2}));
  EXPECT_EQ(Corners(mesh, 2), (Ints{2, 3, 4}));
  EXPECT_EQ(Corners(mesh, 3), (Ints{3, 5, 4}));
  EXPECT_EQ(mesh.GetGridType(), 1);
  EXPECT_EQ(Neighbors(mesh, 0), kNone);  // not asked for
}

TEST(PolysurfaceGrid, PolygonsAreBlueAndBlack) {
  for (const int type : {0, 1}) {
    const CPolysurface mesh = GridOf(2, 2, type);
    for (int polygon = 0; polygon < mesh.GetPSNumPolygons(); ++polygon) {
      int count = 0;
      RGBDType first{9, 9, 9, 9};
      RGBDType second{9, 9, 9, 9};
      mesh.GetPSPolygonIndices(polygon, nullptr, count, first, second);
      EXPECT_EQ((std::array{first.red, first.green, first.blue, first.alpha}),
                (std::array{0.0, 0.0, 1.0, 1.0}));
      EXPECT_EQ((std::array{second.red, second.green, second.blue, second.alpha}),
                (std::array{0.0, 0.0, 0.0, 1.0}));
    }
  }
}

TEST(PolysurfaceGrid, ExtentsAreThoseOfTheFirstAndTheLastPoint) {
  std::vector<point3Dtype> points = GridPoints(3, 5);
  points[0] = {-2, 50, 0, 0};
  points[7] = {1000, 1000, 1000, 0};  // no matter
  const CPolysurface mesh(points.data(), 3, 5, 1);
  EXPECT_EQ(mesh.GetRGRows(), 3);
  EXPECT_EQ(mesh.GetRGColumns(), 5);
  EXPECT_EQ(mesh.GetRGMinX(), -2.0);
  EXPECT_EQ(mesh.GetRGMaxX(), 40.0);
  EXPECT_EQ(mesh.GetRGRangeX(), 42.0);
  EXPECT_EQ(mesh.GetRGStepX(), 10.5);  // 42 / 4
  EXPECT_EQ(mesh.GetRGMinY(), 50.0);
  EXPECT_EQ(mesh.GetRGMaxY(), 200.0);
  EXPECT_EQ(mesh.GetRGRangeY(), 150.0);
  EXPECT_EQ(mesh.GetRGStepY(), 75.0);  // 150 / 2
  EXPECT_EQ(mesh.GetRGMinZ(), 0.0);
  EXPECT_EQ(mesh.GetRGMaxZ(), 0.0);
  EXPECT_EQ(mesh.GetRGRangeZ(), 0.0);
}

TEST(PolysurfaceGrid, FewerThanTwoRowsOrColumnsHaveNoPolygons) {
  for (const int type : {0, 1}) {
    for (const auto& [rows, columns] : std::initializer_list<std::pair<int, int>>{
             {1, 5}, {5, 1}, {1, 1}, {0, 5}, {5, 0}, {0, 0}}) {
      SCOPED_TRACE(::testing::Message() << rows << " x " << columns << ", type " << type);
      CPolysurface mesh = GridOf(rows, columns, type);
      EXPECT_EQ(mesh.GetPSNumPoints(), rows * columns);
      EXPECT_EQ(mesh.GetPSNumPolygons(), 0);
      EXPECT_EQ(mesh.GetPSMaxPolygons(), 0);
      EXPECT_EQ(mesh.GetRGRows(), rows);
      EXPECT_EQ(mesh.GetRGStepX(), columns > 1 && rows > 0 ? 10.0 : 0.0);
      EXPECT_EQ(mesh.GetRGStepY(), rows > 1 && columns > 0 ? 100.0 : 0.0);
      mesh.CreateRGAdjacentPolygonList();
      EXPECT_EQ(Neighbors(mesh, 0), kNone);
    }
  }
}

TEST(PolysurfaceGrid, OpenMeshesAreConvertedInPlace) {
  const std::vector<point3Dtype> points = GridPoints(2, 2);
  CPolysurface mesh(4, 5, 3);
  mesh.SetPolysurfacePoints(points.data(), 0, 4);
  mesh.AddPolysurfacePolygon(4, std::array{0, 0, 0}.data(), 3, {}, {});
  mesh.ConvertRG2PS(nullptr, 2, 2, 2);
  EXPECT_EQ(mesh.GetPSNumPolygons(), 1);
  EXPECT_EQ(mesh.GetPSMaxPolygons(), 5);
  EXPECT_EQ(Corners(mesh, 0), (Ints{0, 1, 3, 2}));
  EXPECT_EQ(Corners(mesh, 4), Ints{});
  EXPECT_EQ(mesh.GetGridType(), 2);
  EXPECT_EQ(mesh.GetRGMaxY(), 100.0);
  mesh.ConvertRG2PS(nullptr, 2, 2, 3);
  EXPECT_EQ(mesh.GetPSNumPolygons(), 2);
  EXPECT_EQ(Corners(mesh, 1), (Ints{1, 3, 2}));
  EXPECT_EQ(mesh.GetGridType(), 3);
  mesh.ConvertRG2PS(nullptr, 1, 4, 3);
  EXPECT_EQ(mesh.GetPSNumPolygons(), 0);
  EXPECT_EQ(mesh.GetRGColumns(), 4);
}

TEST(PolysurfaceGrid, OpenMeshesNeedRoom) {
  const CaughtError bad{19, 18, "ConvertRG2PS"};
  const auto convert = [](CPolysurface mesh, int rows, int columns, int type) {
    const CaughtError caught = Catch([&] { mesh.ConvertRG2PS(nullptr, rows, columns, type); });
    EXPECT_EQ(mesh.GetRGRows(), caught == kNoError ? rows : 0);
    return caught;
  };
  EXPECT_EQ(convert(CPolysurface(9, 8, 3), 3, 3, 3), kNoError);
  EXPECT_EQ(convert(CPolysurface(8, 8, 3), 3, 3, 3), bad);  // the spare points don't count
  EXPECT_EQ(convert(CPolysurface(9, 7, 4), 3, 3, 3), bad);
  EXPECT_EQ(convert(CPolysurface(9, 4, 4), 3, 3, 2), kNoError);
  EXPECT_EQ(convert(CPolysurface(9, 4, 3), 3, 3, 2), bad);  // 12 of 16 vertices
  EXPECT_EQ(convert(CPolysurface(9, 8, 3), kHuge, kHuge, 2), bad);
  EXPECT_EQ(convert(CPolysurface(9, 8, 3), -3, -3, 2), bad);
  EXPECT_EQ(convert(CPolysurface(9, 8, 3), -1, 3, 2), bad);
  EXPECT_EQ(convert(CPolysurface(), 3, 3, 2), (CaughtError{3, 18, "ConvertRG2PS"}));
}

TEST(PolysurfaceGrid, ImpossibleGridsAreRefused) {
  CPolysurface mesh = GridOf(2, 2, 1);
  const std::vector<point3Dtype> points = GridPoints(2, 2);
  for (const int type : {0, 1}) {
    for (const auto& [rows, columns] :
         std::initializer_list<std::pair<int, int>>{{-1, 5},
                                                    {5, -1},
                                                    {-2, -2},
                                                    {kHuge, kHuge},
                                                    {-kHuge - 1, -kHuge - 1},
                                                    {65536, 65536}}) {
      EXPECT_EQ(Catch([&] { mesh.ConvertRG2PS(points.data(), rows, columns, type); }),
                (CaughtError{3, 18, "ConvertRG2PS"}));
    }
  }
  for (const int type : {-1, 4, kHuge}) {
    EXPECT_EQ(Catch([&] { mesh.ConvertRG2PS(points.data(), 2, 2, type); }),
              (CaughtError{10, 18, "ConvertRG2PS"}));
  }
  EXPECT_EQ(mesh.GetPSNumPolygons(), 2);
}

TEST(PolysurfaceGrid, PointsMayBeMissingOrItsOwn) {
  CPolysurface mesh(nullptr, 2, 2, 0);
  EXPECT_EQ(mesh.GetPSNumPolygons(), 1);
  EXPECT_EQ(PointOf(mesh, 3).x, 0.0);
  mesh = GridOf(2, 2, 0);
  mesh.SetWireFrame(1);
  mesh.ConvertRG2PS(mesh.GetPSPoints(), 2, 2, 1);
  EXPECT_EQ(PointOf(mesh, 3).x, 10.0);
  EXPECT_EQ(mesh.GetPSNumPolygons(), 2);
  EXPECT_EQ(mesh.GetWireFrame(), 1);
}

TEST(PolysurfaceGrid, OpeningForgetsTheGrid) {
  CPolysurface mesh = GridOf(2, 2, 1);
  mesh.OpenPolysurface(1, 1, 1);
  EXPECT_EQ(mesh.GetRGRows(), 0);
  EXPECT_EQ(mesh.GetGridType(), 0);
}

// --- neighbours ---

TEST(PolysurfaceNeighbors, LieAcrossTheEdges) {
  // 3 x 3 points; cells of the first row hold triangles 0 1 and 2 3, of the second 4 5 and 6 7.
  CPolysurface mesh = GridOf(3, 3, 1);
  mesh.CreateRGAdjacentPolygonList();
  const std::array<Ints, 8> expected{{{-1, 1, -1},
                                      {2, 4, 0},
                                      {-1, 3, 1},
                                      {-1, 6, 2},
                                      {1, 5, -1},
                                      {6, -1, 4},
                                      {3, 7, 5},
                                      {-1, -1, 6}}};
  for (int polygon = 0; polygon < 8; ++polygon) {
    EXPECT_EQ(Neighbors(mesh, polygon), expected[static_cast<std::size_t>(polygon)]) << polygon;
  }
}

TEST(PolysurfaceNeighbors, ShareTheEdge) {
  CPolysurface mesh = GridOf(4, 6, 1);
  mesh.CreateRGAdjacentPolygonList();
  int shared = 0;
  for (int polygon = 0; polygon < mesh.GetPSNumPolygons(); ++polygon) {
    const Ints corners = Corners(mesh, polygon);
    const Ints neighbors = Neighbors(mesh, polygon);
    for (std::size_t k = 0; k < 3; ++k) {
      if (neighbors[k] < 0) continue;
      ++shared;
      const Ints other = Corners(mesh, neighbors[k]);
      for (const int end : {corners[k], corners[(k + 1) % 3]}) {
        EXPECT_NE(std::find(other.begin(), other.end(), end), other.end());
      }
      const Ints back = Neighbors(mesh, neighbors[k]);
      EXPECT_NE(std::find(back.begin(), back.end(), polygon), back.end());
    }
  }
  // 30 triangles have 90 sides, of which 2 * (3 + 5) are on the border.
  EXPECT_EQ(shared, 74);
}

TEST(PolysurfaceNeighbors, AreOnlyThoseOfGridsOfTriangles) {
  CPolysurface squares = GridOf(3, 3, 0);
  squares.CreateRGAdjacentPolygonList();
  EXPECT_EQ(Neighbors(squares, 0), kNone);
  CPolysurface scattered(GridPoints(2, 2).data(), 0, 4);
  scattered.AddPolysurfacePolygon(0, std::array{0, 1, 2}.data(), 3, {}, {});
  scattered.CreateRGAdjacentPolygonList();
  EXPECT_EQ(Neighbors(scattered, 0), kNone);
  CPolysurface changed = GridOf(2, 2, 1);
  changed.ResetPolysurfacePolygons();
  changed.AddPolysurfacePolygon(0, std::array{0, 1, 2}.data(), 3, {}, {});
  changed.CreateRGAdjacentPolygonList();
  EXPECT_EQ(Neighbors(changed, 0), kNone);
}

TEST(PolysurfaceNeighbors, GoWithThePolygons) {
  CPolysurface mesh = GridOf(2, 2, 1);
  mesh.CreateRGAdjacentPolygonList();
  EXPECT_EQ(Neighbors(mesh, 0), (Ints{-1, 1, -1}));
  for (const int polygon : {-1, 2, kHuge, -kHuge - 1}) EXPECT_EQ(Neighbors(mesh, polygon), kNone);
  mesh.GetAdjacentPolyList(0, nullptr);
  EXPECT_EQ(Neighbors(CPolysurface(mesh), 0), (Ints{-1, 1, -1}));
  CPolysurface closed(mesh);
  closed.ClosePolysurface();
  EXPECT_EQ(Neighbors(closed, 0), kNone);
  mesh.ResetPolysurfacePolygons();
  EXPECT_EQ(Neighbors(mesh, 0), kNone);
}

TEST(PolysurfaceNeighbors, ReportMemoryThatRunsOut) {
  CPolysurface mesh = GridOf(2, 2, 1);
  EXPECT_EQ(Catch([&] {
              const orvalix::test::AllocationFailure failure(1);
              mesh.CreateRGAdjacentPolygonList();
            }),
            (CaughtError{2, 18, "CreateRGAdjacentPolygonList"}));
}

// --- even grids ---

TEST(PolysurfaceEvenGrid, SpreadsValuesOverARectangle) {
  const std::array<double, 6> values{5, -1, 3, 8, 2, 4};
  const CPolysurface mesh(2, 3, 10.0, 20.0, 14.0, 25.0, values.data(), 1);
  EXPECT_EQ(mesh.GetPSNumPoints(), 6);
  EXPECT_EQ(mesh.GetPSMaxPolygons(), 14);  // 2 * 6 + 2
  EXPECT_EQ(mesh.GetPSPointsPerPolygon(), 3);
  EXPECT_EQ(mesh.GetPSNumPolygons(), 4);
  for (int i = 0; i < 6; ++i) {
    const point3Dtype point = PointOf(mesh, i);
    EXPECT_EQ(point.x, 10.0 + 2.0 * (i % 3)) << i;
    EXPECT_EQ(point.y, i < 3 ? 20.0 : 25.0) << i;
    EXPECT_EQ(point.z, values[static_cast<std::size_t>(i)]) << i;
    EXPECT_EQ(point.v, point.z) << i;
  }
  EXPECT_EQ(Corners(mesh, 1), (Ints{1, 4, 3}));
  EXPECT_EQ(Neighbors(mesh, 1), (Ints{2, -1, 0}));
  EXPECT_EQ(mesh.GetEvenGridFlag(), 1);
  EXPECT_EQ(mesh.GetGridType(), 3);
  EXPECT_EQ(mesh.GetRGRows(), 2);
  EXPECT_EQ(mesh.GetRGColumns(), 3);
  EXPECT_EQ(mesh.GetRGMinX(), 10.0);
  EXPECT_EQ(mesh.GetRGMaxX(), 14.0);
  EXPECT_EQ(mesh.GetRGStepX(), 2.0);
  EXPECT_EQ(mesh.GetRGRangeY(), 5.0);
  EXPECT_EQ(mesh.GetRGMinZ(), -1.0);
  EXPECT_EQ(mesh.GetRGMaxZ(), 8.0);
  EXPECT_EQ(mesh.GetRGRangeZ(), 9.0);
}

TEST(PolysurfaceEvenGrid, StepsAddUpAlongRowsOnly) {
  const std::vector<double> values(11 * 11);
  const CPolysurface mesh(11, 11, 0.0, 0.0, 1.0, 1.0, values.data(), 1);
  double sum = 0.0;
  for (int i = 0; i < 10; ++i) sum += 0.1;
  ASSERT_NE(sum, 1.0);
  EXPECT_EQ(PointOf(mesh, 10).x, sum);
  EXPECT_EQ(PointOf(mesh, 110).x, 0.0);  // each row starts at the minimum
  EXPECT_EQ(PointOf(mesh, 110).y, 10 * 0.1);
  EXPECT_EQ(PointOf(mesh, 33).y, 3 * 0.1);  // 0.30000000000000004
}

TEST(PolysurfaceEvenGrid, OfQuadrilateralsHasNoNeighbors) {
  const std::array<double, 4> values{1, 2, 3, 4};
  const CPolysurface mesh(2, 2, 0.0, 0.0, 1.0, 1.0, values.data(), 0);
  EXPECT_EQ(mesh.GetGridType(), 2);
  EXPECT_EQ(mesh.GetEvenGridFlag(), 1);
  EXPECT_EQ(mesh.GetPSMaxPolygons(), 10);
  EXPECT_EQ(mesh.GetPSPointsPerPolygon(), 3);
  EXPECT_EQ(mesh.GetPSNumPolygons(), 1);
  EXPECT_EQ(Corners(mesh, 0), (Ints{0, 1, 3, 2}));
  EXPECT_EQ(Neighbors(mesh, 0), kNone);
}

TEST(PolysurfaceEvenGrid, NeedsTwoRowsTwoColumnsAndValues) {
  const CaughtError expected{10, 18, "CreatePolysurfaceEvenGrid"};
  const std::array<double, 4> values{1, 2, 3, 4};
  CPolysurface mesh = GridOf(2, 2, 1);
  const auto create = [&](int rows, int columns, const double* data, int type) {
    return Catch([&] { mesh.CreatePolysurfaceEvenGrid(rows, columns, 0, 0, 1, 1, data, type); });
  };
  for (const int few : {1, 0, -1, -kHuge - 1}) {
    EXPECT_EQ(create(few, 2, values.data(), 1), expected);
    EXPECT_EQ(create(2, few, values.data(), 1), expected);
  }
  EXPECT_EQ(create(2, 2, nullptr, 1), expected);
  for (const int type : {-1, 2, 3, kHuge}) EXPECT_EQ(create(2, 2, values.data(), type), expected);
  const CaughtError tooLarge{3, 18, "CreatePolysurfaceEvenGrid"};
  EXPECT_EQ(create(kHuge, kHuge, values.data(), 1), tooLarge);
  EXPECT_EQ(create(40000, 40000, values.data(), 1), tooLarge);  // 3.2e9 polygons
  EXPECT_EQ(mesh.GetRGMaxX(), 10.0);                            // as it was
}

TEST(PolysurfaceEvenGrid, ReportsMemoryThatRunsOut) {
  const std::array<double, 4> values{1, 2, 3, 4};
  CPolysurface mesh = GridOf(3, 2, 1);
  int errors = 0;
  const int failures = orvalix::test::FailEachAllocation([&] {
    const CaughtError caught =
        Catch([&] { mesh.CreatePolysurfaceEvenGrid(2, 2, 0, 0, 1, 1, values.data(), 1); });
    if (caught == kNoError) return;
    ++errors;
    EXPECT_EQ(caught, (CaughtError{3, 18, "CreatePolysurfaceEvenGrid"}));
    EXPECT_EQ(mesh.GetPSNumPolygons(), 4);
  });
  EXPECT_EQ(failures, 4);  // points, polygons, indices, neighbours
  EXPECT_EQ(errors, failures);
}

TEST(PolysurfaceEvenGrid, UndefinedHeightsCountForNothing) {
  const std::array<double, 4> some{kNaN, 7, kNaN, 3};
  const CPolysurface mesh(2, 2, 0.0, 0.0, 1.0, 1.0, some.data(), 1);
  EXPECT_EQ(mesh.GetRGMinZ(), 3.0);
  EXPECT_EQ(mesh.GetRGMaxZ(), 7.0);
  EXPECT_TRUE(std::isnan(PointOf(mesh, 0).z));
  const std::array<double, 4> none{kNaN, kNaN, kNaN, kNaN};
  const CPolysurface undefined(2, 2, kNaN, kNaN, kNaN, kNaN, none.data(), 1);
  EXPECT_EQ(undefined.GetRGMinZ(), 0.0);
  EXPECT_EQ(undefined.GetRGRangeZ(), 0.0);
  EXPECT_EQ(undefined.GetPSNumPolygons(), 2);
}

TEST(PolysurfaceEvenGrid, ValuesMayLieInTheMesh) {
  const std::array<double, 4> values{1, 2, 3, 4};
  CPolysurface mesh(2, 2, 0.0, 0.0, 1.0, 1.0, values.data(), 1);
  mesh.SetWireFrame(1);
  mesh.CreatePolysurfaceEvenGrid(2, 2, 0, 0, 1, 1, &mesh.GetPSPoints()->z, 1);
  EXPECT_EQ(PointOf(mesh, 0).z, 1.0);
  EXPECT_EQ(PointOf(mesh, 1).z, 1.0);  // z and v of point 0
  EXPECT_EQ(PointOf(mesh, 2).z, 1.0);  // x of point 1
  EXPECT_EQ(mesh.GetWireFrame(), 1);
}

// --- functions ---

double Plane(double x, double y) { return 100 * x + y; }

TEST(PolysurfaceFunction, IsSampledAtEvenlySpacedPointsWithTheBorders) {
  const CPolysurface mesh(3, 2, 1.0, 10.0, 2.0, 30.0, Plane);
  const std::array<point3Dtype, 6> expected{{{1, 10, 110, 110},
                                             {2, 10, 210, 210},
                                             {1, 20, 120, 120},
                                             {2, 20, 220, 220},
                                             {1, 30, 130, 130},
                                             {2, 30, 230, 230}}};
  for (int i = 0; i < 6; ++i) {
    const point3Dtype point = PointOf(mesh, i);
    const point3Dtype& wanted = expected[static_cast<std::size_t>(i)];
    EXPECT_EQ((std::array{point.x, point.y, point.z, point.v}),
              (std::array{wanted.x, wanted.y, wanted.z, wanted.v}));
  }
  EXPECT_EQ(mesh.GetPSNumPolygons(), 4);
  EXPECT_EQ(Neighbors(mesh, 0), (Ints{-1, 1, -1}));
  EXPECT_EQ(mesh.GetGridType(), 3);
  EXPECT_EQ(mesh.GetEvenGridFlag(), 1);
  EXPECT_EQ(mesh.GetRGMinZ(), 110.0);
  EXPECT_EQ(mesh.GetRGMaxZ(), 230.0);
}

TEST(PolysurfaceFunction, NeedsTwoRowsTwoColumnsAndAFunction) {
  const CaughtError expected{10, 18, "CreatePolysurfaceFunction"};
  EXPECT_EQ(Catch([] { CPolysurface(1, 2, 0.0, 0.0, 1.0, 1.0, Plane); }), expected);
  EXPECT_EQ(Catch([] { CPolysurface(2, 1, 0.0, 0.0, 1.0, 1.0, Plane); }), expected);
  EXPECT_EQ(Catch([] { CPolysurface(2, 2, 0.0, 0.0, 1.0, 1.0, nullptr); }), expected);
  EXPECT_EQ(Catch([] { CPolysurface(kHuge, kHuge, 0.0, 0.0, 1.0, 1.0, Plane); }),
            (CaughtError{3, 18, "CreatePolysurfaceFunction"}));
  EXPECT_EQ(Catch([] {
              const orvalix::test::AllocationFailure failure(1);
              CPolysurface(2, 2, 0.0, 0.0, 1.0, 1.0, Plane);
            }),
            (CaughtError{3, 18, "CreatePolysurfaceFunction"}));
}

double Fail(double, double) { throw 42; }

TEST(PolysurfaceFunction, WhatItThrowsLeavesTheMeshAsItWas) {
  CPolysurface mesh = GridOf(2, 2, 1);
  EXPECT_THROW(mesh.CreatePolysurfaceFunction(3, 3, 0, 0, 1, 1, Fail), int);
  EXPECT_EQ(mesh.GetRGRows(), 2);
  EXPECT_EQ(mesh.GetPSNumPolygons(), 2);
}

// --- reduced copies ---

/// The numbers that the points of a reduced GridOf() had.
Ints PointsOf(const CPolysurface& mesh) {
  Ints numbers;
  for (int i = 0; i < mesh.GetPSNumPoints(); ++i) {
    numbers.push_back(static_cast<int>(PointOf(mesh, i).z));
  }
  return numbers;
}

TEST(PolysurfaceReduced, KeepsEverySecondRowAndColumnAndTheLast) {
  CPolysurface source = GridOf(5, 4, 1);
  source.SetWireFrame(3);
  const CPolysurface mesh(&source, 1);
  // Rows 0, 2, 4; columns 0, 2, 3.
  EXPECT_EQ(PointsOf(mesh), (Ints{0, 2, 3, 8, 10, 11, 16, 18, 19}));
  EXPECT_EQ(PointOf(mesh, 4).v, -10.0);
  EXPECT_EQ(mesh.GetRGRows(), 3);
  EXPECT_EQ(mesh.GetRGColumns(), 3);
  EXPECT_EQ(mesh.GetPSNumPolygons(), 8);
  EXPECT_EQ(Corners(mesh, 3), (Ints{2, 5, 4}));
  EXPECT_EQ(mesh.GetGridType(), 1);
  EXPECT_EQ(mesh.GetRGMaxX(), 30.0);
  EXPECT_EQ(mesh.GetRGStepX(), 15.0);
  EXPECT_EQ(mesh.GetRGMaxZ(), 19.0);
  EXPECT_EQ(mesh.GetWireFrame(), 3);
  EXPECT_EQ(mesh.GetClassTag(), 1414);
  EXPECT_EQ(Neighbors(mesh, 0), kNone);  // as the source
}

TEST(PolysurfaceReduced, SmallGridsLoseNothing) {
  for (const auto& [rows, columns] :
       std::initializer_list<std::pair<int, int>>{{2, 2}, {1, 2}, {2, 1}, {1, 1}}) {
    const CPolysurface source = GridOf(rows, columns, 1);
    const CPolysurface mesh(&source, 1);
    EXPECT_EQ(PointsOf(mesh), PointsOf(source));
    EXPECT_EQ(mesh.GetRGRows(), rows);
    EXPECT_EQ(mesh.GetPSNumPolygons(), source.GetPSNumPolygons());
  }
}

TEST(PolysurfaceReduced, HasTheTypeAndNeighborsOfTheSource) {
  std::vector<double> values(25);
  std::iota(values.begin(), values.end(), 0.0);
  const CPolysurface even(5, 5, 0.0, 0.0, 1.0, 1.0, values.data(), 1);
  const CPolysurface mesh(&even, 0);
  EXPECT_EQ(PointsOf(mesh), (Ints{0, 2, 4, 10, 12, 14, 20, 22, 24}));
  EXPECT_EQ(mesh.GetGridType(), 3);
  EXPECT_EQ(mesh.GetEvenGridFlag(), 1);  // 0, 2 and 4 are even, too
  EXPECT_EQ(Neighbors(mesh, 1), (Ints{2, 4, 0}));
  const CPolysurface uneven(4, 5, 0.0, 0.0, 1.0, 1.0, values.data(), 1);
  EXPECT_EQ(CPolysurface(&uneven, 0).GetEvenGridFlag(), 0);
  const CPolysurface squares(5, 5, 0.0, 0.0, 1.0, 1.0, values.data(), 0);
  const CPolysurface fewer(&squares, 0);
  EXPECT_EQ(fewer.GetGridType(), 2);
  EXPECT_EQ(fewer.GetPSNumPolygons(), 4);
  EXPECT_EQ(Corners(fewer, 3), (Ints{4, 5, 8, 7}));
  CPolysurface changed = even;
  changed.ReducePolysurface(&changed, 0);  // itself, to quadrilaterals
  EXPECT_EQ(changed.GetGridType(), 0);
  EXPECT_EQ(PointsOf(changed), PointsOf(mesh));
  EXPECT_EQ(changed.GetPSNumPolygons(), 4);
}

TEST(PolysurfaceReduced, MeshesWithoutAGridAreCopied) {
  CPolysurface scattered(GridPoints(2, 3).data(), 0, 6);
  scattered.AddPolysurfacePolygon(0, std::array{0, 1, 2}.data(), 3, {}, {});
  const CPolysurface mesh(&scattered, 1);
  EXPECT_EQ(mesh.GetPSNumPoints(), 6);
  EXPECT_EQ(Corners(mesh, 0), (Ints{0, 1, 2}));
  CPolysurface closed = GridOf(3, 3, 1);
  closed.ClosePolysurface();
  EXPECT_EQ(CPolysurface(&closed, 1).GetPSNumPoints(), 0);
}

TEST(PolysurfaceReduced, NeedsAMeshAndAType) {
  const CaughtError expected{10, 18, "ReducePolysurface"};
  const CPolysurface neverOpen;
  const CPolysurface source = GridOf(3, 3, 1);
  CPolysurface mesh = GridOf(2, 2, 1);
  EXPECT_EQ(Catch([] { CPolysurface(static_cast<CPolysurface*>(nullptr), 1); }), expected);
  EXPECT_EQ(Catch([&] { mesh.ReducePolysurface(nullptr, 1); }), expected);
  EXPECT_EQ(Catch([&] { mesh.ReducePolysurface(&neverOpen, 1); }), expected);
  for (const int type : {-1, 4}) {
    EXPECT_EQ(Catch([&] { mesh.ReducePolysurface(&source, type); }), expected);
  }
  EXPECT_EQ(mesh.GetRGRows(), 2);
}

TEST(PolysurfaceReduced, ReportsMemoryThatRunsOut) {
  CPolysurface source = GridOf(3, 3, 1);
  source.CreateRGAdjacentPolygonList();
  CPolysurface mesh = GridOf(2, 2, 1);
  int errors = 0;
  const int failures = orvalix::test::FailEachAllocation([&] {
    const CaughtError caught = Catch([&] { mesh.ReducePolysurface(&source, 0); });
    if (caught == kNoError) return;
    ++errors;
    EXPECT_EQ(caught, (CaughtError{2, 18, "ReducePolysurface"}));
    EXPECT_EQ(PointOf(mesh, 1).z, 1.0);
  });
  EXPECT_GE(failures, 3);
  EXPECT_EQ(errors, failures);
}

}  // namespace
