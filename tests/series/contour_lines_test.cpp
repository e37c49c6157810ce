#include <algorithm>
#include <array>
#include <cstring>

#include "series/contour_fixture.h"
#include "support/temporary_file.h"

namespace {

using namespace orvalix::test;

class ContourLines : public ContourTest {
 protected:
  /// A height that is nowhere the same in neighbouring points.
  static double Bumps(double x, double y) {
    return std::sin(3.0 * x + 0.3) + std::cos(2.7 * y + 0.1) + 0.1 * x * y;
  }

  static double Bowl(double x, double y) { return x * x + y * y; }

  /// The mesh with other neighbours, as a file may hold them: three per polygon.
  static CPolysurface WithNeighbors(const CPolysurface& mesh, const std::vector<int>& neighbors) {
    constexpr std::size_t kAdjacencyFlag = 2 * 4 + 11 * 8;
    Bytes record = Saved(mesh);
    const std::size_t listBytes = static_cast<std::size_t>(mesh.GetPSMaxPolygons()) * 3 * 4;
    int flag = 0;
    std::memcpy(&flag, record.data() + kAdjacencyFlag, sizeof flag);
    if (flag == 0) {
      flag = 1;
      std::memcpy(record.data() + kAdjacencyFlag, &flag, sizeof flag);
      record.resize(record.size() + listBytes);
    }
    unsigned char* list = record.data() + record.size() - listBytes;
    std::memcpy(list, neighbors.data(), std::min(listBytes, neighbors.size() * sizeof(int)));
    CPolysurface changed;
    LoadFrom(changed, record);
    return changed;
  }

  /// The neighbours of all polygons.
  static std::vector<int> NeighborsOf(const CPolysurface& mesh) {
    std::vector<int> neighbors(static_cast<std::size_t>(mesh.GetPSMaxPolygons()) * 3, -1);
    for (int i = 0; i < mesh.GetPSNumPolygons(); ++i) {
      mesh.GetAdjacentPolyList(i, neighbors.data() + std::ptrdiff_t{3} * i);
    }
    return neighbors;
  }
};

TEST_F(ContourLines, CrossATriangleWhereTheHeightIsInterpolated) {
  const auto mesh = OnePolygon({{-0.5, -0.5, 0, 0}, {0.5, -0.5, 4, 0}, {-0.5, 0.5, 2, 0}});
  const auto drawn = Draw(mesh, {1.0}, nullptr, 0.25);
  ASSERT_EQ(drawn.size(), 1U);
  // A quarter of the way from 0 to 4, then half of the way from 2 to 0; all at z = 0.25.
  EXPECT_NEAR(drawn[0].vertices[0].x, 100.0 * (1.0 - 0.25), 1e-2);
  EXPECT_NEAR(drawn[0].vertices[0].y, 100.0 * (1.0 - 0.5), 1e-2);
  EXPECT_NEAR(drawn[0].vertices[1].x, 100.0 * (1.0 - 0.5), 1e-2);
  EXPECT_NEAR(drawn[0].vertices[1].y, 100.0 * (1.0 + 0.0), 1e-2);
  for (const auto& vertex : drawn[0].vertices) EXPECT_NEAR(vertex.z, 0.625, 1e-6);
}

TEST_F(ContourLines, RunThroughEveryPolygonThatTheyCross) {
  const auto mesh = GridOf(9, 8, Bumps);
  ExpectLines(mesh, {0.0});
  ExpectLines(mesh, {-1.5, -0.7, 0.123, 1.0, 1.9});
  EXPECT_FALSE(Expected(mesh, 0.0).empty());
}

TEST_F(ContourLines, LieInTheirPlane) {
  for (const double plane : {-0.75, 0.0, 0.5}) {
    const auto drawn = Draw(GridOf(6, 6, Bumps), {-0.5, 0.5}, nullptr, plane);
    EXPECT_FALSE(drawn.empty());
    for (const auto& line : drawn) {
      for (const auto& vertex : line.vertices) EXPECT_NEAR(vertex.z, (plane + 1.0) / 2.0, 1e-6);
    }
  }
}

TEST_F(ContourLines, OutsideTheHeightsThereAreNone) {
  const auto mesh = GridOf(5, 5, Bowl);  // from 0 to 2
  EXPECT_TRUE(Lines(mesh, {-0.1, 2.1, kInfinity, -kInfinity}).empty());
  EXPECT_EQ(Crossings(mesh, {-0.1, 2.1, kInfinity, -kInfinity}), 0);
}

TEST_F(ContourLines, OfABowlAreClosedAndFollowedOnce) {
  const auto mesh = GridOf(12, 12, Bowl);
  const auto lines = Lines(mesh, {0.5});
  ExpectSameSegments(lines, Expected(mesh, 0.5));
  ASSERT_GT(lines.size(), 10U);
  ExpectChain(lines);
  EXPECT_TRUE(Touch(lines.back(), lines.front()));
  EXPECT_EQ(Crossings(mesh, {0.5}), static_cast<long long>(lines.size()));
  // The same level again is followed again.
  EXPECT_EQ(Crossings(mesh, {0.5, 0.5}), 2 * static_cast<long long>(lines.size()));
}

TEST_F(ContourLines, ThatBeginInTheMiddleAreFollowedBothWays) {
  // y = x^2 - 0.5: its lowest polygon is in the middle, and both ends lie on the upper border.
  const auto mesh = GridOf(12, 13, [](double x, double y) { return y - x * x; });
  const auto lines = Lines(mesh, {-0.52});
  ExpectSameSegments(lines, Expected(mesh, -0.52));
  ASSERT_GT(lines.size(), 10U);
  ExpectChain(lines);
  EXPECT_FALSE(Touch(lines.back(), lines.front()));
}

TEST_F(ContourLines, OfOneHeightMayBeSeveral) {
  // Two bowls side by side, each with a line of its own.
  const auto mesh = GridOf(15, 29, [](double x, double y) {
    const double inBowl = std::abs(x) - 0.5;
    return inBowl * inBowl + y * y;
  });
  const auto lines = Lines(mesh, {0.1});
  ExpectSameSegments(lines, Expected(mesh, 0.1));
  std::vector<Segment> left;
  std::vector<Segment> right;
  std::size_t changes = 0;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    (lines[i].x0 < 0.0 ? left : right).push_back(lines[i]);
    if (i > 0 && (lines[i].x0 < 0.0) != (lines[i - 1].x0 < 0.0)) ++changes;
  }
  EXPECT_EQ(changes, 1U);  // first the one, then the other
  for (const auto& line : {left, right}) {
    ASSERT_GT(line.size(), 5U);
    ExpectChain(line);
    EXPECT_TRUE(Touch(line.back(), line.front()));
  }
}

TEST_F(ContourLines, ThroughAVertexEndWhereTheirFirstTwoCrossingsAre) {
  const point3Dtype at{0, 0, 1, 0};  // at the level
  const point3Dtype low{0.5, -0.5, 0, 0};
  const point3Dtype high{0.5, 0.5, 2, 0};
  // The vertex first: its edge to the low one crosses there, then the opposite edge halfway up.
  ExpectSameSegments(Lines(OnePolygon({at, low, high}), {1.0}), {{0, 0, 0.5, 0}});
  ExpectSameSegments(Lines(OnePolygon({low, high, at}), {1.0}), {{0.5, 0, 0, 0}});
  // Both edges at the vertex come first: without a length.
  ExpectSameSegments(Lines(OnePolygon({high, at, low}), {1.0}), {{0, 0, 0, 0}});
  // A corner that only touches the level.
  const point3Dtype higher{-0.5, 0.5, 3, 0};
  ExpectSameSegments(Lines(OnePolygon({at, high, higher}), {1.0}), {{0, 0, 0, 0}});
  ExpectSameSegments(Lines(OnePolygon({high, at, higher}), {1.0}), {{0, 0, 0, 0}});
}

TEST_F(ContourLines, AtTheHeightOfManyVerticesGoThroughEachPolygonOnce) {
  const auto mesh = GridOf(9, 9, [](double x, double y) { return std::round(2.0 * (x + y)); });
  ExpectLines(mesh, {0.0});
  ExpectLines(mesh, {-1.0, 0.0, 1.0, 2.0, 0.5});
}

TEST_F(ContourLines, FlatEdgesAreDrawnByTheirNeighbours) {
  const point3Dtype a{-0.5, 0, 1, 0};
  const point3Dtype b{0.5, 0, 1, 0};
  // Both other edges cross the level at the ends of the flat one.
  ExpectSameSegments(Lines(OnePolygon({a, b, {0, 0.5, 2, 0}}), {1.0}), {{-0.5, 0, 0.5, 0}});
  ExpectSameSegments(Lines(OnePolygon({{0, 0.5, 2, 0}, a, b}), {1.0}), {{-0.5, 0, 0.5, 0}});
  // Without them the flat edge alone draws nothing, though it counts as crossed.
  const auto alone = OnePolygon({a, b, {0, 0.5, kNaN, 0}});
  EXPECT_TRUE(Lines(alone, {1.0}).empty());
  EXPECT_EQ(Crossings(alone, {1.0}), 1);
  // Heights that differ by 1e-20 or less are the same.
  const auto almost = OnePolygon({{-0.5, 0, 0, 0}, {0.5, 0, 1e-20, 0}, {0, 0.5, kNaN, 0}});
  EXPECT_TRUE(Lines(almost, {0.0}).empty());
  const auto steeper = OnePolygon({{-0.5, 0, 0, 0}, {0.5, 0, 3e-20, 0}, {0, 0.5, 3e-20, 0}});
  ExpectSameSegments(Lines(steeper, {1.5e-20}), {{0, 0, -0.25, 0.25}});
}

TEST_F(ContourLines, FlatMeshesDrawNothingAtTheirHeight) {
  const auto mesh = GridOf(4, 5, [](double, double) { return 3.0; });
  EXPECT_TRUE(Lines(mesh, {3.0, 2.0}).empty());
  EXPECT_EQ(Crossings(mesh, {3.0}), 24);  // 3 * 4 cells of two triangles
  EXPECT_EQ(Crossings(mesh, {2.0}), 0);
}

TEST_F(ContourLines, PlateausAreSurrounded) {
  const auto mesh = GridOf(9, 9, [](double x, double y) { return Bowl(x, y) < 0.5 ? 1.0 : 2.0; });
  ExpectLines(mesh, {1.0, 1.5, 2.0});
}

TEST_F(ContourLines, UndefinedHeightsAreHoles) {
  const auto mesh = GridOf(8, 8, [](double x, double y) {
    return Near(x, 1.0 / 7.0) && Near(y, 1.0 / 7.0) ? kNaN : x + 0.1 * y;
  });
  const auto whole = GridOf(8, 8, [](double x, double y) { return x + 0.1 * y; });
  ExpectLines(mesh, {0.01, 0.2, 0.9});
  EXPECT_LT(Lines(mesh, {0.1}).size(), Lines(whole, {0.1}).size());
  EXPECT_TRUE(Lines(GridOf(4, 4, [](double, double) { return kNaN; }), {0.0}).empty());
}

TEST_F(ContourLines, EdgesToInfiniteHeightsHaveNoPlaceToBeCrossed) {
  const auto mesh = OnePolygon({{-0.5, -0.5, 0, 0}, {0.5, -0.5, 0, 0}, {0, 0.5, kInfinity, 0}});
  EXPECT_TRUE(Lines(mesh, {5.0, kInfinity, -kInfinity}).empty());
  EXPECT_EQ(Crossings(mesh, {5.0, kInfinity, -kInfinity}), 2);
  EXPECT_TRUE(
      Lines(OnePolygon({{-0.5, -0.5, -kInfinity, 0}, {0.5, -0.5, kInfinity, 0}, {0, 0.5, 1, 0}}),
            {0.0, kInfinity, -kInfinity})
          .empty());
  // Among others they leave a hole: a grid of 7 * 7 cells, 14 triangles along a line, less those
  // around one point.
  const auto grid = GridOf(8, 8, [](double x, double y) {
    return Near(x, 1.0 / 7.0) && Near(y, 1.0 / 7.0) ? kInfinity : x + 0.01;
  });
  const auto lines = Lines(grid, {0.05});
  EXPECT_LT(lines.size(), 14U);
  EXPECT_GE(lines.size(), 8U);
}

TEST_F(ContourLines, LevelsMayComeInAnyOrder) {
  const auto mesh = GridOf(9, 8, Bumps);
  ExpectLines(mesh, {1.0, -0.7, 0.1, 0.1, 1.0, -1.5, 5.0});
  // An undefined one has no line, and its neighbours theirs.
  const auto lines = Lines(mesh, {kNaN, 0.1, kNaN, -0.7});
  auto expected = Expected(mesh, 0.1);
  const auto second = Expected(mesh, -0.7);
  expected.insert(expected.end(), second.begin(), second.end());
  ExpectSameSegments(lines, expected);
  EXPECT_EQ(Crossings(mesh, {kNaN, 0.1, kNaN}), Crossings(mesh, {0.1}));
}

TEST_F(ContourLines, EachHeightHasItsColor) {
  const auto mesh = GridOf(5, 5, [](double x, double) { return x + 0.01; });
  const std::array<RGBDType, 4> colors{{{1, 0, 0, 1}, {0, 1, 0, 1}, {0, 0, 1, 1}, {1, 1, 1, 1}}};
  const auto drawn = Draw(mesh, {0.6, 9.0, -0.6}, colors.data());
  ASSERT_EQ(drawn.size(), 16U);  // 4 rows of two triangles each
  for (std::size_t i = 0; i < drawn.size(); ++i) {
    const auto& color = colors[i < 8 ? 0 : 2];  // no line of the second, and none in the last
    for (const auto& vertex : drawn[i].vertices) {
      EXPECT_NEAR(vertex.red, color.red, 1e-6) << i;
      EXPECT_NEAR(vertex.blue, color.blue, 1e-6) << i;
    }
  }
  for (const auto& line : Draw(mesh, {0.6})) {  // without colours, black
    EXPECT_EQ(line.vertices[0].red + line.vertices[0].green + line.vertices[0].blue, 0.0);
  }
}

TEST_F(ContourLines, AreSolidAndOnePixelWide) {
  gl.SetLineStyle3D(3, 5.0, {1, 1, 1, 1});
  Draw(GridOf(5, 5, Bowl), {0.5});
  EXPECT_EQ(gl.GetLineStyle(), 0);
  EXPECT_EQ(gl.GetLineWidth3D(), 1.0);
}

TEST_F(ContourLines, WithoutNeighboursAreTheSame) {
  const auto known = GridOf(9, 8, Bumps);
  const CPolysurface unknown(known.GetPSPoints(), 9, 8, 1);
  std::array<int, 3> neighbors{};
  unknown.GetAdjacentPolyList(0, neighbors.data());
  ASSERT_EQ(neighbors, (std::array<int, 3>{-1, -1, -1}));
  for (const double level : {-0.7, 0.0, 0.123, 1.0}) {
    ExpectSameSegments(Lines(unknown, {level}), Lines(known, {level}));
    EXPECT_EQ(Crossings(unknown, {level}), Crossings(known, {level}));
  }
}

TEST_F(ContourLines, OfQuadrilaterals) {
  const auto mesh = GridOf(9, 8, Bumps, 0);
  ExpectLines(mesh, {-0.7, 0.0, 0.123, 1.0});
  // Four crossings, as of a saddle: only the first two have a line.
  const auto saddle =
      OnePolygon({{-0.5, -0.5, 0, 0}, {0.5, -0.5, 2, 0}, {0.5, 0.5, 0, 0}, {-0.5, 0.5, 2, 0}});
  ExpectSameSegments(Lines(saddle, {1.0}), {{0, -0.5, 0.5, 0}});
}

TEST_F(ContourLines, QuadrilateralsWithNeighboursAreFollowedAcrossTheirFirstThreeEdges) {
  const auto mesh = GridOf(3, 3, Bumps, 0);
  // Polygons 0 1 / 2 3: below, to the right and above; to the left there is no room for one.
  std::vector<int> neighbors(static_cast<std::size_t>(mesh.GetPSMaxPolygons()) * 3, -1);
  const std::vector<int> known{-1, 1, 2, -1, -1, 3, 0, 3, -1, 1, -1, -1};
  std::copy(known.begin(), known.end(), neighbors.begin());
  ExpectLines(WithNeighbors(mesh, neighbors), {-0.7, 0.0, 0.123, 1.0, 1.5});
}

TEST_F(ContourLines, WrongNeighboursLoseNothing) {
  const auto mesh = GridOf(7, 8, Bumps);
  const std::vector<double> levels{-0.7, 0.0, 0.123, 1.0};
  ExpectLines(WithNeighbors(mesh, NeighborsOf(mesh)), levels);

  auto outside = NeighborsOf(mesh);
  for (std::size_t i = 0; i < outside.size(); i += 4) outside[i] = i % 8 == 0 ? 1000000 : -7;
  ExpectLines(WithNeighbors(mesh, outside), levels);

  auto behindTheLast = NeighborsOf(mesh);
  for (int& neighbor : behindTheLast) neighbor = std::max(neighbor, mesh.GetPSNumPolygons());
  ExpectLines(WithNeighbors(mesh, behindTheLast), levels);

  auto oneSided = NeighborsOf(mesh);
  for (std::size_t polygon = 0; polygon < oneSided.size(); polygon += 6) oneSided[polygon + 1] = -1;
  ExpectLines(WithNeighbors(mesh, oneSided), levels);

  auto itself = NeighborsOf(mesh);
  for (std::size_t i = 0; i < itself.size(); ++i) itself[i] = static_cast<int>(i / 3);
  ExpectLines(WithNeighbors(mesh, itself), levels);

  auto farAway = NeighborsOf(mesh);
  for (int& neighbor : farAway) neighbor = (neighbor * 31 + 17) % mesh.GetPSNumPolygons();
  ExpectLines(WithNeighbors(mesh, farAway), levels);
}

TEST_F(ContourLines, OfManyHeightsAreThoseOfEach) {
  // Every height crosses every one of the 32 polygons, more often than there is room for in one
  // pass over the mesh.
  const auto mesh = GridOf(5, 5, [](double x, double y) {
    return std::lround((x + y) * 2.0) % 2 == 0 ? 1.0 + 0.1 * x : 2000.0 - 0.1 * y;
  });
  std::vector<double> levels;
  for (int i = 0; i < 1900; ++i) levels.push_back(3.5 + (i * 37) % 1901);
  ExpectLines(mesh, levels);
  EXPECT_EQ(Lines(mesh, levels).size(), 1900U * 32);
  levels.insert(levels.begin() + 20, kNaN);
  EXPECT_EQ(Lines(mesh, levels).size(), 1900U * 32);
}

TEST_F(ContourLines, SkipPolygonsWithoutTheirPoints) {
  auto mesh = GridOf(3, 3, Bumps);
  CPolysurface holes(9, 3, 3);
  holes.SetPolysurfacePoints(mesh.GetPSPoints(), 0, 9);
  holes.AddPolysurfacePolygon(0, std::array{0, 1, 1000}.data(), 3, {}, {});
  holes.AddPolysurfacePolygon(1, std::array{0, -4, 3}.data(), 3, {}, {});
  holes.AddPolysurfacePolygon(2, std::array{0, 1, 3}.data(), 3, {}, {});
  const double level = (holes.GetPSPoints()[0].z + holes.GetPSPoints()[1].z) / 2.0;
  ExpectLines(holes, {level});
  EXPECT_EQ(Lines(holes, {level}).size(), 1U);
}

}  // namespace
