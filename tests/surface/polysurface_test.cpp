#include "orvalix/surface/polysurface.h"

#include <gtest/gtest.h>

#include <array>
#include <numeric>
#include <type_traits>
#include <utility>
#include <vector>

#include "support/allocation_failure.h"
#include "support/caught_error.h"

namespace {

using orvalix::test::Catch;
using orvalix::test::CaughtError;
using orvalix::test::kNoError;

constexpr int kHuge = 2147483647;
constexpr int kLowest = -kHuge - 1;
constexpr RGBDType kRed{1, 0.25, 0.5, 0.75};
constexpr RGBDType kGreen{0, 1, 0.125, 1};
const std::array<point3Dtype, 5> kPoints{
    {{1, 2, 3, 4}, {5, 6, 7, 8}, {9, 10, 11, 12}, {13, 14, 15, 16}, {17, 18, 19, 20}}};

/// Five points and two triangles of room 3; the triangles are 0-1-2 and 2-3-4.
CPolysurface TwoTriangles() {
  CPolysurface mesh(5, 3, 3);
  mesh.SetPolysurfacePoints(kPoints.data(), 0, 5);
  mesh.AddPolysurfacePolygon(0, std::array{0, 1, 2}.data(), 3, kRed, kGreen);
  mesh.AddPolysurfacePolygon(1, std::array{2, 3, 4}.data(), 3, kGreen, kRed);
  return mesh;
}

struct PolygonRead {
  int count = -1;
  std::array<int, 255> indices{};
  RGBDType first{9, 9, 9, 9};
  RGBDType second{9, 9, 9, 9};
};

PolygonRead ReadIndices(const CPolysurface& mesh, int polygon) {
  PolygonRead read;
  mesh.GetPSPolygonIndices(polygon, read.indices.data(), read.count, read.first, read.second);
  return read;
}

double XOf(const CPolysurface& mesh, int index) {
  point3Dtype point{-1, -1, -1, -1};
  mesh.GetOnePolysurfacePoint(index, point);
  return point.x;
}

void ExpectClosed(const CPolysurface& mesh) {
  EXPECT_EQ(mesh.GetPSNumPoints(), 0);
  EXPECT_EQ(mesh.GetPSMaxPolygons(), 0);
  EXPECT_EQ(mesh.GetPSNumPolygons(), 0);
  EXPECT_EQ(mesh.GetPSPoints(), nullptr);
  EXPECT_EQ(ReadIndices(mesh, 0).count, 0);
}

TEST(Polysurface, IsClosedAtFirst) {
  CPolysurface mesh;
  ExpectClosed(mesh);
  EXPECT_EQ(std::as_const(mesh).GetPSPoints(), nullptr);
  EXPECT_EQ(mesh.GetPSPointsPerPolygon(), 0);
  EXPECT_EQ(mesh.GetEvenGridFlag(), 0);
  EXPECT_EQ(mesh.GetGridType(), 0);
  EXPECT_EQ(mesh.GetRGRows(), 0);
  EXPECT_EQ(mesh.GetRGColumns(), 0);
  EXPECT_EQ(mesh.GetRGRangeZ(), 0.0);
  EXPECT_EQ(mesh.GetWireFrame(), 0);
  EXPECT_EQ(mesh.GetClassTag(), 0);
}

TEST(Polysurface, ClosedMeshesDoNothing) {
  CPolysurface mesh;
  const std::array corners{0, 1, 2};
  EXPECT_EQ(Catch([&] {
              mesh.AddPolysurfacePolygon(0, corners.data(), 3, kRed, kGreen);
              mesh.SetPolysurfaceColors(0, kRed, kGreen);
              mesh.SetOnePolysurfacePoint(0, kPoints[0]);
              mesh.SetPolysurfacePoints(kPoints.data(), 0, 5);
              mesh.CopyXYorZtoV(1, 1, 0);
              mesh.ResetPolysurfacePolygons();
              mesh.CreateRGAdjacentPolygonList();
              mesh.ClosePolysurface();
            }),
            kNoError);
  ExpectClosed(mesh);
  EXPECT_EQ(XOf(mesh, 0), -1.0);
  EXPECT_EQ(mesh.GetPSPMean(0, 0), 0.0);
}

TEST(Polysurface, OpensWithFourSparePoints) {
  CPolysurface mesh;
  mesh.SetWireFrame(7);
  mesh.OpenPolysurface(10, 6, 5);
  EXPECT_EQ(mesh.GetPSNumPoints(), 10);
  EXPECT_EQ(mesh.GetPSMaxPolygons(), 6);
  EXPECT_EQ(mesh.GetPSNumPolygons(), 0);
  EXPECT_EQ(mesh.GetPSPointsPerPolygon(), 5);
  EXPECT_EQ(mesh.GetWireFrame(), 7);
  EXPECT_EQ(mesh.GetClassTag(), 1414);
  EXPECT_EQ(XOf(mesh, 9), 0.0);
  mesh.SetOnePolysurfacePoint(13, kPoints[1]);
  mesh.SetOnePolysurfacePoint(14, kPoints[1]);  // there is none
  EXPECT_EQ(XOf(mesh, 13), 5.0);
  EXPECT_EQ(XOf(mesh, 14), -1.0);
  EXPECT_EQ(mesh.GetPSPoints()[13].x, 5.0);
  EXPECT_EQ(std::as_const(mesh).GetPSPoints()[13].v, 8.0);
}

TEST(Polysurface, NothingIsAMeshToo) {
  const CPolysurface mesh(0, 0, 0);
  EXPECT_EQ(mesh.GetPSNumPoints(), 0);
  EXPECT_NE(mesh.GetPSPoints(), nullptr);  // the spare points
  EXPECT_EQ(XOf(mesh, 3), 0.0);
  EXPECT_EQ(XOf(mesh, 4), -1.0);
}

TEST(Polysurface, OpeningAgainStartsAnew) {
  CPolysurface mesh = TwoTriangles();
  mesh.OpenPolysurface(2, 1, 3);
  EXPECT_EQ(mesh.GetPSNumPoints(), 2);
  EXPECT_EQ(mesh.GetPSNumPolygons(), 0);
  EXPECT_EQ(XOf(mesh, 0), 0.0);
  EXPECT_EQ(ReadIndices(mesh, 0).count, 0);
  // The vertices of the first polygon have the first places: three have room.
  mesh.AddPolysurfacePolygon(0, std::array{0, 1, 0}.data(), 3, kRed, kRed);
  EXPECT_EQ(ReadIndices(mesh, 0).count, 3);
}

TEST(Polysurface, ClosingFreesPointsAndPolygons) {
  CPolysurface mesh = TwoTriangles();
  mesh.SetWireFrame(1);
  mesh.ClosePolysurface();
  ExpectClosed(mesh);
  EXPECT_EQ(mesh.GetPSPointsPerPolygon(), 3);
  EXPECT_EQ(mesh.GetWireFrame(), 1);
  mesh.OpenPolysurface(1, 1, 3);
  mesh.AddPolysurfacePolygon(0, std::array{0, 1, 2}.data(), 3, kRed, kRed);
  EXPECT_EQ(mesh.GetPSNumPolygons(), 1);
}

TEST(Polysurface, ImpossibleSizesAreRefused) {
  const CaughtError expected{2, 18, "OpenPolysurface"};
  CPolysurface mesh = TwoTriangles();
  EXPECT_EQ(Catch([&] { mesh.OpenPolysurface(-1, 1, 1); }), expected);
  EXPECT_EQ(Catch([&] { mesh.OpenPolysurface(1, -1, 1); }), expected);
  EXPECT_EQ(Catch([&] { mesh.OpenPolysurface(1, 1, -1); }), expected);
  EXPECT_EQ(Catch([&] { mesh.OpenPolysurface(kLowest, kLowest, kLowest); }), expected);
  EXPECT_EQ(Catch([&] { mesh.OpenPolysurface(kHuge, 1, 1); }), expected);
  EXPECT_EQ(Catch([&] { mesh.OpenPolysurface(1, kHuge, 2); }), expected);
  EXPECT_EQ(Catch([&] { mesh.OpenPolysurface(1, kHuge, kHuge); }), expected);
  EXPECT_EQ(Catch([] { CPolysurface(-1, 1, 1); }), expected);
  EXPECT_EQ(Catch([] { CPolysurface(kPoints.data(), 0, kHuge); }), expected);
  EXPECT_EQ(Catch([] { CPolysurface(kPoints.data(), 0, -1); }), expected);
  EXPECT_EQ(mesh.GetPSNumPolygons(), 2);  // as it was
}

TEST(Polysurface, ReportsMemoryThatRunsOutWhileOpening) {
  int errors = 0;
  CPolysurface mesh = TwoTriangles();
  const int failures = orvalix::test::FailEachAllocation([&] {
    const CaughtError caught = Catch([&] { mesh.OpenPolysurface(100, 100, 3); });
    if (caught == kNoError) return;
    ++errors;
    EXPECT_EQ(caught, (CaughtError{2, 18, "OpenPolysurface"}));
    EXPECT_EQ(mesh.GetPSNumPoints(), 5);
    EXPECT_EQ(ReadIndices(mesh, 1).count, 3);
  });
  EXPECT_EQ(failures, 3);  // points, polygons, indices
  EXPECT_EQ(errors, failures);
}

TEST(Polysurface, ScatteredPointsHaveRoomForTriangles) {
  const CPolysurface mesh(kPoints.data(), 0, 5);
  EXPECT_EQ(mesh.GetPSNumPoints(), 5);
  EXPECT_EQ(mesh.GetPSMaxPolygons(), 12);  // 2 * 5 + 2
  EXPECT_EQ(mesh.GetPSPointsPerPolygon(), 3);
  EXPECT_EQ(mesh.GetPSNumPolygons(), 0);
  EXPECT_EQ(XOf(mesh, 4), 17.0);
  EXPECT_EQ(XOf(mesh, 5), 0.0);
  EXPECT_EQ(XOf(CPolysurface(nullptr, 0, 5), 4), 0.0);
}

TEST(Polysurface, PointsAreCopiedUpToStartPlusCount) {
  CPolysurface mesh(6, 1, 3);
  mesh.SetPolysurfacePoints(kPoints.data(), 2, 2);
  // min(10, 2 + 2) = 4 elements, from point 2 on.
  for (int i = 0; i < 10; ++i) {
    EXPECT_EQ(XOf(mesh, i), i < 2 || i > 5 ? 0.0 : 1.0 + 4 * (i - 2)) << i;
  }
}

TEST(Polysurface, PointsAreCopiedNowhereElse) {
  std::vector<point3Dtype> many(20);
  for (std::size_t i = 0; i < many.size(); ++i) many[i].x = static_cast<double>(i) + 1;
  CPolysurface mesh(1, 1, 3);  // stores 5
  mesh.SetPolysurfacePoints(many.data(), 0, kHuge);
  EXPECT_EQ(XOf(mesh, 4), 5.0);
  mesh.SetPolysurfacePoints(many.data(), 3, kHuge);
  EXPECT_EQ(XOf(mesh, 2), 3.0);
  EXPECT_EQ(XOf(mesh, 3), 1.0);
  EXPECT_EQ(XOf(mesh, 4), 2.0);
  mesh.SetPolysurfacePoints(many.data(), -2, 6);  // elements 2 and 3 to points 0 and 1
  EXPECT_EQ(XOf(mesh, 0), 3.0);
  EXPECT_EQ(XOf(mesh, 1), 4.0);
  EXPECT_EQ(XOf(mesh, 2), 3.0);
  for (const auto& [start, count] :
       std::initializer_list<std::pair<int, int>>{{0, -1},
                                                  {0, 0},
                                                  {-5, 3},
                                                  {5, 3},
                                                  {kHuge, kHuge},
                                                  {kLowest, kHuge},
                                                  {kLowest, kLowest}}) {
    mesh.SetPolysurfacePoints(many.data(), start, count);
  }
  mesh.SetPolysurfacePoints(nullptr, 0, 5);
  EXPECT_EQ(XOf(mesh, 0), 3.0);
  EXPECT_EQ(XOf(mesh, 4), 2.0);
  mesh.SetPolysurfacePoints(mesh.GetPSPoints(), 1, 3);  // its own, one further
  EXPECT_EQ(XOf(mesh, 1), 3.0);
  EXPECT_EQ(XOf(mesh, 2), 4.0);
  EXPECT_EQ(XOf(mesh, 3), 3.0);
}

TEST(Polysurface, PointsOutOfRangeAreHarmless) {
  CPolysurface mesh = TwoTriangles();
  for (const int index : {-1, 9, kHuge, kLowest}) {
    mesh.SetOnePolysurfacePoint(index, kPoints[0]);
    EXPECT_EQ(XOf(mesh, index), -1.0);
  }
}

TEST(Polysurface, ValuesAreTakenFromACoordinate) {
  CPolysurface mesh = TwoTriangles();
  mesh.CopyXYorZtoV(10, 1, 0);
  EXPECT_EQ(mesh.GetPSPoints()[1].v, 40.0);  // (5 - 1) * 10
  mesh.CopyXYorZtoV(10, 1, 1);
  EXPECT_EQ(mesh.GetPSPoints()[1].v, 50.0);
  mesh.CopyXYorZtoV(10, 1, 2);
  EXPECT_EQ(mesh.GetPSPoints()[1].v, 60.0);
  EXPECT_EQ(mesh.GetPSPoints()[8].v, -10.0);  // spare ones, too
  for (const int axis : {-1, 3, kHuge}) mesh.CopyXYorZtoV(1, 1, axis);
  EXPECT_EQ(mesh.GetPSPoints()[1].v, 60.0);
  EXPECT_EQ(mesh.GetPSPoints()[1].z, 7.0);
}

TEST(Polysurface, PolygonsAreReadBack) {
  const CPolysurface mesh = TwoTriangles();
  EXPECT_EQ(mesh.GetPSNumPolygons(), 2);
  const PolygonRead read = ReadIndices(mesh, 1);
  EXPECT_EQ(read.count, 3);
  EXPECT_EQ(read.indices[0], 2);
  EXPECT_EQ(read.indices[2], 4);
  EXPECT_EQ(read.first.green, 1.0);
  EXPECT_EQ(read.second.blue, 0.5);
  EXPECT_EQ(read.second.alpha, 0.75);

  std::array<point3Dtype, 4> points{{{}, {}, {}, {-5, -5, -5, -5}}};
  int count = 0;
  RGBDType first{};
  RGBDType second{};
  mesh.GetPolysurfacePolygon(0, points.data(), count, first, second);
  EXPECT_EQ(count, 3);
  EXPECT_EQ(points[0].x, 1.0);
  EXPECT_EQ(points[2].v, 12.0);
  EXPECT_EQ(points[3].x, -5.0);  // no closing point
  EXPECT_EQ(first.red, 1.0);
  EXPECT_EQ(second.green, 1.0);
  count = 0;
  mesh.GPSPolygon(1, points.data(), count);
  EXPECT_EQ(count, 3);
  EXPECT_EQ(points[0].x, 9.0);
  EXPECT_EQ(points[2].y, 18.0);
  mesh.GPSPolygon(1, nullptr, count);
  mesh.GetPSPolygonIndices(1, nullptr, count, first, second);
  EXPECT_EQ(count, 3);
}

TEST(Polysurface, TheCallerChoosesTheSlot) {
  CPolysurface mesh(5, 4, 3);
  mesh.AddPolysurfacePolygon(3, std::array{4, 3, 2}.data(), 3, kRed, kGreen);
  EXPECT_EQ(mesh.GetPSNumPolygons(), 1);
  EXPECT_EQ(ReadIndices(mesh, 3).indices[0], 4);
  EXPECT_EQ(ReadIndices(mesh, 0).count, 0);
  // Written again, it takes the places after the first three and counts again.
  mesh.AddPolysurfacePolygon(3, std::array{0, 1}.data(), 2, kGreen, kGreen);
  EXPECT_EQ(mesh.GetPSNumPolygons(), 2);
  EXPECT_EQ(ReadIndices(mesh, 3).count, 2);
  EXPECT_EQ(ReadIndices(mesh, 3).indices[1], 1);
  EXPECT_EQ(ReadIndices(mesh, 3).first.red, 0.0);
}

TEST(Polysurface, NeverCountsMorePolygonsThanThereCanBe) {
  CPolysurface mesh(5, 2, 10);
  for (int i = 0; i < 5; ++i) {
    mesh.AddPolysurfacePolygon(0, std::array{0, 1, 2}.data(), 3, kRed, kRed);
  }
  EXPECT_EQ(mesh.GetPSNumPolygons(), 2);
}

TEST(Polysurface, PolygonsThatDoNotFitAreLeftOut) {
  CPolysurface mesh(5, 2, 3);  // room for 6 vertices
  const std::array corners{0, 1, 2, 3, 4, 0, 1};
  for (const int polygon : {-1, 2, kHuge, kLowest}) {
    mesh.AddPolysurfacePolygon(polygon, corners.data(), 3, kRed, kRed);
    mesh.SetPolysurfaceColors(polygon, kGreen, kGreen);
    const PolygonRead read = ReadIndices(mesh, polygon);
    EXPECT_EQ(read.count, 0);
    EXPECT_EQ(read.first.red, 9.0);
    EXPECT_EQ(mesh.GetPSPMean(polygon, 0), 0.0);
  }
  for (const int count : {-1, 7, kHuge, kLowest}) {
    mesh.AddPolysurfacePolygon(0, corners.data(), count, kRed, kRed);
  }
  mesh.AddPolysurfacePolygon(0, nullptr, 3, kRed, kRed);
  EXPECT_EQ(mesh.GetPSNumPolygons(), 0);
  mesh.AddPolysurfacePolygon(0, corners.data(), 4, kRed, kRed);
  mesh.AddPolysurfacePolygon(1, corners.data(), 3, kRed, kRed);  // two places are left
  EXPECT_EQ(mesh.GetPSNumPolygons(), 1);
  mesh.AddPolysurfacePolygon(1, corners.data(), 2, kRed, kRed);
  EXPECT_EQ(mesh.GetPSNumPolygons(), 2);
}

TEST(Polysurface, PolygonsWithoutVerticesCount) {
  CPolysurface mesh(5, 2, 3);
  mesh.AddPolysurfacePolygon(0, nullptr, 0, kRed, kGreen);
  EXPECT_EQ(mesh.GetPSNumPolygons(), 1);
  EXPECT_EQ(ReadIndices(mesh, 0).count, 0);
  EXPECT_EQ(ReadIndices(mesh, 0).first.red, 1.0);
  EXPECT_EQ(mesh.GetPSPMean(0, 0), 0.0);
  double lowest = 0;
  double highest = 0;
  EXPECT_FALSE(mesh.GetPSPHeights(0, lowest, highest));
}

TEST(Polysurface, HeightsOfAPolygonAreItsLowestAndHighest) {
  CPolysurface mesh = TwoTriangles();
  double lowest = 0;
  double highest = 0;
  EXPECT_TRUE(mesh.GetPSPHeights(0, lowest, highest));
  EXPECT_EQ(lowest, 3.0);  // z of the first three of kPoints: 3, 7, 11
  EXPECT_EQ(highest, 11.0);
  point3Dtype point = kPoints[0];
  point.z = std::numeric_limits<double>::quiet_NaN();
  mesh.SetOnePolysurfacePoint(0, point);  // passed over
  EXPECT_TRUE(mesh.GetPSPHeights(0, lowest, highest));
  EXPECT_EQ(lowest, 7.0);
  EXPECT_FALSE(mesh.GetPSPHeights(2, lowest, highest));
  EXPECT_GT(lowest, highest);
}

TEST(Polysurface, MoreThan255VerticesWrap) {
  CPolysurface mesh(5, 2, 300);
  std::vector<int> corners(300);
  corners[43] = 3;
  mesh.AddPolysurfacePolygon(0, corners.data(), 300, kRed, kRed);
  EXPECT_EQ(mesh.GetPSNumPolygons(), 1);
  EXPECT_EQ(ReadIndices(mesh, 0).count, 44);  // 300 - 256
  EXPECT_EQ(ReadIndices(mesh, 0).indices[43], 3);
  // All 300 took their places: 300 more fit, 301 don't.
  corners.resize(301);
  mesh.AddPolysurfacePolygon(1, corners.data(), 301, kRed, kRed);
  EXPECT_EQ(mesh.GetPSNumPolygons(), 1);
  mesh.AddPolysurfacePolygon(1, corners.data(), 255, kRed, kRed);
  EXPECT_EQ(ReadIndices(mesh, 1).count, 255);
}

TEST(Polysurface, RefusesPolygonsWithoutRecordsOrIndices) {
  const CaughtError expected{19, 18, "AddPolysurfacePolygon"};
  for (const auto& [polygons, perPolygon] :
       std::initializer_list<std::pair<int, int>>{{0, 3}, {3, 0}}) {
    CPolysurface mesh(5, polygons, perPolygon);
    EXPECT_EQ(Catch([&] {
                mesh.AddPolysurfacePolygon(0, std::array{0, 1, 2}.data(), 3, kRed, kRed);
              }),
              expected);
  }
}

TEST(Polysurface, VerticesThatDoNotExistMakeNoPolygon) {
  for (const int missing : {-1, 9, kHuge, kLowest}) {
    CPolysurface mesh = TwoTriangles();
    mesh.AddPolysurfacePolygon(2, std::array{0, missing, 1}.data(), 3, kRed, kGreen);
    EXPECT_EQ(ReadIndices(mesh, 2).indices[1], missing);
    std::array<point3Dtype, 3> points{};
    int count = -1;
    RGBDType first{9, 9, 9, 9};
    RGBDType second = first;
    mesh.GetPolysurfacePolygon(2, points.data(), count, first, second);
    EXPECT_EQ(count, 0);
    EXPECT_EQ(first.red, 9.0);
    mesh.GPSPolygon(2, points.data(), count);
    EXPECT_EQ(count, 0);
    EXPECT_EQ(mesh.GetPSPMean(2, 0), 0.0);
  }
}

TEST(Polysurface, ColorsChangeAlone) {
  CPolysurface mesh = TwoTriangles();
  mesh.SetPolysurfaceColors(1, kRed, kGreen);
  EXPECT_EQ(ReadIndices(mesh, 1).first.red, 1.0);
  EXPECT_EQ(ReadIndices(mesh, 1).second.green, 1.0);
  EXPECT_EQ(ReadIndices(mesh, 1).count, 3);
  EXPECT_EQ(ReadIndices(mesh, 0).first.red, 1.0);
}

TEST(Polysurface, MeansAreThoseOfTheVertices) {
  const CPolysurface mesh = TwoTriangles();
  EXPECT_EQ(mesh.GetPSPMean(0, 0), 5.0);   // (1 + 5 + 9) / 3
  EXPECT_EQ(mesh.GetPSPMean(1, 1), 14.0);  // (10 + 14 + 18) / 3
  EXPECT_EQ(mesh.GetPSPMean(0, 2), 7.0);
  EXPECT_EQ(mesh.GetPSPMean(0, 3), 0.0);
  EXPECT_EQ(mesh.GetPSPMean(0, -1), 0.0);
  EXPECT_EQ(mesh.GetPSPMean(2, 0), 0.0);  // not yet added
}

TEST(Polysurface, ResetEmptiesThePolygonList) {
  CPolysurface mesh(5, 1, 3);
  mesh.SetPolysurfacePoints(kPoints.data(), 0, 5);
  for (int i = 0; i < 2; ++i) {
    mesh.AddPolysurfacePolygon(0, std::array{0, 1, 2}.data(), 3, kRed, kRed);
    EXPECT_EQ(mesh.GetPSNumPolygons(), 1);
    EXPECT_EQ(ReadIndices(mesh, 0).count, 3);
    mesh.ResetPolysurfacePolygons();
    EXPECT_EQ(mesh.GetPSNumPolygons(), 0);
    EXPECT_EQ(ReadIndices(mesh, 0).count, 0);
  }
  EXPECT_EQ(mesh.GetPSMaxPolygons(), 1);
  EXPECT_EQ(XOf(mesh, 4), 17.0);
}

TEST(Polysurface, CopiesAreOnTheirOwn) {
  CPolysurface source = TwoTriangles();
  source.SetWireFrame(5);
  const CPolysurface copy(&source);
  source.SetOnePolysurfacePoint(4, kPoints[0]);
  source.ResetPolysurfacePolygons();
  EXPECT_EQ(copy.GetPSNumPoints(), 5);
  EXPECT_EQ(copy.GetPSMaxPolygons(), 3);
  EXPECT_EQ(copy.GetPSNumPolygons(), 2);
  EXPECT_EQ(copy.GetPSPointsPerPolygon(), 3);
  EXPECT_EQ(copy.GetWireFrame(), 5);
  EXPECT_EQ(copy.GetClassTag(), 1414);
  EXPECT_EQ(XOf(copy, 4), 17.0);
  EXPECT_EQ(ReadIndices(copy, 1).indices[2], 4);

  CPolysurface assigned(1, 1, 1);
  assigned = copy;
  const CPolysurface constructed(copy);
  CPolysurface again = copy;
  // There is room for three more vertices, after the six that are used.
  again.AddPolysurfacePolygon(2, std::array{4, 4, 4}.data(), 3, kRed, kRed);
  EXPECT_EQ(ReadIndices(again, 1).indices[2], 4);
  EXPECT_EQ(ReadIndices(again, 2).indices[2], 4);
  EXPECT_EQ(XOf(assigned, 4), 17.0);
  EXPECT_EQ(XOf(constructed, 4), 17.0);
  assigned.CopyPolysurface(&assigned);
  EXPECT_EQ(XOf(assigned, 4), 17.0);
}

TEST(Polysurface, MovingClosesTheSource) {
  static_assert(std::is_nothrow_move_constructible_v<CPolysurface>);
  CPolysurface source = TwoTriangles();
  CPolysurface moved(std::move(source));
  ExpectClosed(source);  // NOLINT(bugprone-use-after-move)
  EXPECT_EQ(moved.GetPSNumPolygons(), 2);
  CPolysurface assigned(7, 7, 7);
  assigned = std::move(moved);
  ExpectClosed(moved);  // NOLINT(bugprone-use-after-move)
  EXPECT_EQ(assigned.GetPSNumPoints(), 5);
}

TEST(Polysurface, CopiesNothingButMeshes) {
  const CaughtError expected{10, 18, "CopyPolysurface"};
  const CPolysurface neverOpen;
  CPolysurface mesh = TwoTriangles();
  EXPECT_EQ(Catch([&] { mesh.CopyPolysurface(nullptr); }), expected);
  EXPECT_EQ(Catch([&] { mesh.CopyPolysurface(&neverOpen); }), expected);
  EXPECT_EQ(Catch([&] { CPolysurface copy(&neverOpen); }), expected);
  EXPECT_EQ(mesh.GetPSNumPolygons(), 2);
  CPolysurface closed(1, 1, 1);
  closed.ClosePolysurface();
  mesh.CopyPolysurface(&closed);
  ExpectClosed(mesh);
}

TEST(Polysurface, ReportsMemoryThatRunsOutWhileCopying) {
  const CPolysurface source = TwoTriangles();
  CPolysurface mesh(1, 1, 1);
  int errors = 0;
  const int failures = orvalix::test::FailEachAllocation([&] {
    const CaughtError caught = Catch([&] { mesh.CopyPolysurface(&source); });
    if (caught == kNoError) return;
    ++errors;
    EXPECT_EQ(caught, (CaughtError{2, 18, "CopyPolysurface"}));
    EXPECT_EQ(mesh.GetPSNumPoints(), 1);
  });
  EXPECT_EQ(failures, 3);
  EXPECT_EQ(errors, failures);
}

}  // namespace
