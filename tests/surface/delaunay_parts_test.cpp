#include <gtest/gtest.h>
#include <unistd.h>

#include <array>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <random>
#include <set>
#include <utility>
#include <vector>

#include "orvalix/surface/delaunay_internal.h"
#include "orvalix/surface/exact_signs_internal.h"
#include "orvalix/surface/hilbert_internal.h"
#include "surface/mesh_check.h"

namespace {

using orvalix::Delaunay;
using orvalix::ExceedHalfTurn;
using orvalix::ExceedHalfTurnExactly;
using orvalix::GridPoint;
using orvalix::HilbertPosition;
using orvalix::LiesOutside;
using orvalix::LiesOutsideExactly;

using Points = std::vector<point3Dtype>;
using Random = std::mt19937_64;

/// How far out the grid goes.
constexpr double kFar = 100 * 0x1p52;

const Points kSquare{{0, 0, 0, 0}, {1, 0, 0, 0}, {1, 1, 0, 0}, {0, 1, 0, 0}};

Delaunay Triangulation(const Points& points) {
  Delaunay work;
  work.Init(points);
  if (work.Measure()) {
    work.bsort();
    work.MakeTables();
    work.delaunwork();
  }
  return work;
}

// --- what ends the process ---

/// What a call prints to the standard output goes where a death test looks.
template <class Call>
void ShowOutputOf(Call&& call) {
  dup2(STDERR_FILENO, STDOUT_FILENO);
  call();
  std::exit(0);  // not reached when the call ends the process
}

const ::testing::ExitedWithCode kExitedWith1{1};

TEST(DelaunayChecks, TrianglesThatAreNotNeighborsEndTheProcess) {
  Delaunay work = Triangulation(kSquare);
  ASSERT_EQ(work.Triangles().size(), 2U);
  const auto edge = static_cast<std::size_t>(work.edg(0, 1));
  EXPECT_EQ(work.Triangles()[0].neighbor[edge], 1);
  EXPECT_EXIT(ShowOutputOf([&] { work.edg(0, 5); }), kExitedWith1,
              "^Error in function edg\nElements not adjacent\n$");
}

TEST(DelaunayChecks, AFullStackEndsTheProcess) {
  Delaunay work = Triangulation(kSquare);
  for (int t = 0; t < 4; ++t) work.push(t);  // as many as there are points
  EXPECT_EXIT(ShowOutputOf([&] { work.push(4); }), kExitedWith1,
              "^Error in routine push\nStack Overflow \n $");
  for (int t = 3; t >= 0; --t) EXPECT_EQ(work.pop(), t);
}

TEST(DelaunayChecks, AnEmptyStackEndsTheProcess) {
  Delaunay work = Triangulation(kSquare);
  EXPECT_EXIT(ShowOutputOf([&] { work.pop(); }), kExitedWith1,
              "^Error in function pop\nStack underflow\n$");
}

TEST(DelaunayChecks, AWrongNumberOfTrianglesEndsTheProcess) {
  const Delaunay work = Triangulation(kSquare);
  // The two triangles that are left don't make three, as one insertion does.
  EXPECT_EXIT(ShowOutputOf([&] { work.RequireTrianglesOf(1); }), kExitedWith1,
              "^Error in function delaun \nincorrect number of triangles formed \n$");
}

TEST(DelaunayChecks, NoFewPointsFillTheStack) {
  // Of three points, of which the last lies between the others, all five triangles' edges may have
  // to be checked at once. The process would end.
  Random random(1);
  std::uniform_real_distribution<double> uniform(0, 1);
  for (int repetition = 0; repetition < 20000; ++repetition) {
    const double flatness = std::pow(10.0, -12 * uniform(random));
    Points points(2 + random() % 6);
    for (point3Dtype& point : points) point = {uniform(random), flatness * uniform(random), 0, 0};
    EXPECT_LE(Triangulation(points).Triangles().size(), 2 * points.size());
  }
}

// --- the order of insertion ---

std::vector<int> OrderOf(const Points& points) {
  Delaunay work;
  work.Init(points);
  EXPECT_TRUE(work.Measure());
  work.bsort();
  std::vector<int> order;
  for (std::size_t i = 0; i < points.size(); ++i) {
    order.push_back(work.PointOf(static_cast<int>(i)));
  }
  return order;
}

/// The way along the first `count` points that are inserted.
double WayAlong(const Points& points, std::size_t count) {
  const std::vector<int> order = OrderOf(points);
  double way = 0.0;
  for (std::size_t i = 1; i < count; ++i) {
    const point3Dtype& from = points[static_cast<std::size_t>(order[i - 1])];
    const point3Dtype& to = points[static_cast<std::size_t>(order[i])];
    way += std::hypot(to.x - from.x, to.y - from.y);
  }
  return way;
}

TEST(DelaunayOrder, RoundsHalvesUp) {
  EXPECT_EQ(Delaunay::rtround(2.49), 2);
  EXPECT_EQ(Delaunay::rtround(2.5), 3);
  EXPECT_EQ(Delaunay::rtround(-2.5), -2);
  EXPECT_EQ(Delaunay::rtround(0.0), 0);
}

TEST(DelaunayOrder, BinsRunBackAndForth) {
  // 81 points make 81^(1/4) = 3 rows of 3 bins. Of 9 columns of points, at x = 0 to 8, three fall
  // in each column of bins: x / 8 * 3 / 1.01 = 0, 0.37, 0.74, 1.11, 1.49, 1.86, 2.23, 2.60, 2.97.
  Points points;
  for (int i = 0; i < 81; ++i)
    points.push_back({std::floor(i * 7 % 81 % 9), i * 7 % 81 / 9 * 2.0, 0, 0});
  const std::vector<int> order = OrderOf(points);
  constexpr std::array<std::pair<int, int>, 9> kColumnAndRow{
      {{0, 0}, {1, 0}, {2, 0}, {2, 1}, {1, 1}, {0, 1}, {0, 2}, {1, 2}, {2, 2}}};
  std::set<int> seen;
  for (int i = 0; i < 81; ++i) {
    const int number = order[static_cast<std::size_t>(i)];
    const point3Dtype& point = points[static_cast<std::size_t>(number)];
    const auto& [column, row] = kColumnAndRow[static_cast<std::size_t>(i) / 9];
    EXPECT_EQ(static_cast<int>(point.x) / 3, column) << i;
    EXPECT_EQ(static_cast<int>(point.y) / 6, row) << i;
    seen.insert(number);
  }
  EXPECT_EQ(seen.size(), 81U);  // each once
}

TEST(DelaunayOrder, HoldsEachPointOnce) {
  // Crowds that only the last bits tell apart, and ones that nothing does.
  Points points;
  for (int i = 0; i < 1000; ++i) points.push_back({i % 2 * 1.0, i % 3 * 0.5 + i * 0x1p-50, 0, 0});
  points.insert(points.end(), 1000, {0.25, 0.25, 0, 0});
  const std::vector<int> order = OrderOf(points);
  const std::set<int> seen(order.begin(), order.end());
  EXPECT_EQ(seen.size(), 2000U);
  EXPECT_EQ(*seen.begin(), 0);
  EXPECT_EQ(*seen.rbegin(), 1999);
}

TEST(DelaunayOrder, EachBinIsSpreadOverFirst) {
  // 20 points on a line make 2 bins of 10 points. Of the order along the curve, every 9th comes
  // first, counted from the end, then every 3rd backwards, then the rest.
  Points points;
  for (int i = 0; i < 20; ++i) points.push_back({i * 1.0, 5, 0, 0});
  constexpr std::array<int, 20> kAlongX{0,  9,  6,  3,  1,  2,  4,  5,  7,  8,
                                        10, 19, 16, 13, 11, 12, 14, 15, 17, 18};
  EXPECT_EQ(OrderOf(points), std::vector<int>(kAlongX.begin(), kAlongX.end()));
  for (point3Dtype& point : points) point = {5, point.x, 0, 0};
  // In the second row of bins the curve is mirrored, its right side is gone along downwards.
  constexpr std::array<int, 20> kAlongY{0,  9,  6,  3,  1,  2,  4,  5,  7,  8,
                                        19, 10, 13, 16, 18, 17, 15, 14, 12, 11};
  EXPECT_EQ(OrderOf(points), std::vector<int>(kAlongY.begin(), kAlongY.end()));
}

TEST(DelaunayOrder, FollowsTheCurveIntoCrowds) {
  // 4096 points in a square of 2^-40, in an extent of 1. Along the curve there are about 64
  // squares' widths from the first to the last, 2.4 times as many in all rounds; in no order, half
  // a width for each point.
  constexpr int kCount = 4096;
  constexpr double kSize = 0x1p-40;
  Random random(4);
  std::uniform_real_distribution<double> uniform(0, kSize);
  Points points{{1, 1, 0, 0}};
  for (int i = 0; i < kCount; ++i) points.push_back({uniform(random), uniform(random), 0, 0});
  EXPECT_EQ(OrderOf(points).back(), 0);  // the one far out
  EXPECT_LT(WayAlong(points, kCount), 400 * kSize);
}

TEST(DelaunayOrder, GoesAlongThinBins) {
  // A strip of 1 by 1000 and bins as thin: going along one passes its height once, while a curve
  // that is stretched to fill it would go up and down many times.
  constexpr int kCount = 4096;
  Random random(5);
  std::uniform_real_distribution<double> uniform(0, 1);
  Points points;
  for (int i = 0; i < kCount; ++i)
    points.push_back({uniform(random), 1000 * uniform(random), 0, 0});
  // 64 bins, each 125 high, gone along in 4 rounds (strides 27, 9, 3, 1) and up to once to get
  // there.
  EXPECT_LT(WayAlong(points, kCount), 64 * 125 * 5);
}

TEST(DelaunayOrder, TheCurveGoesFromCellToCell) {
  for (int levels = 1; levels <= 5; ++levels) {
    const int side = 1 << levels;
    std::vector<std::pair<int, int>> cells(static_cast<std::size_t>(side * side), {-9, -9});
    for (int x = 0; x < side; ++x) {
      for (int y = 0; y < side; ++y) {
        const auto u = static_cast<std::uint64_t>(x);
        const auto v = static_cast<std::uint64_t>(y);
        const std::uint64_t position = HilbertPosition(u, v, levels);
        ASSERT_LT(position, cells.size());
        cells[position] = {x, y};
        EXPECT_EQ(HilbertPosition(u | 1U << levels, v | 5U << levels, levels), position);
      }
    }
    EXPECT_EQ(cells.front(), std::pair(0, 0));
    EXPECT_EQ(cells.back(), std::pair(side - 1, 0));
    for (std::size_t i = 1; i < cells.size(); ++i) {
      EXPECT_EQ(std::abs(cells[i].first - cells[i - 1].first) +
                    std::abs(cells[i].second - cells[i - 1].second),
                1);
    }
  }
}

// --- signs ---

GridPoint Scaled(const GridPoint& p, double scale) { return {p.x * scale, p.y * scale}; }

TEST(DelaunaySigns, RightOfAnEdgeIsOutside) {
  EXPECT_TRUE(LiesOutside({0, 0}, {4, 0}, {1, -1}));
  EXPECT_FALSE(LiesOutside({0, 0}, {4, 0}, {1, 1}));
  EXPECT_FALSE(LiesOutside({0, 0}, {4, 0}, {1, 0}));  // on it
  EXPECT_FALSE(LiesOutside({0, 0}, {4, 0}, {0, 0}));
}

TEST(DelaunaySigns, SidesAreToldApartToTheLastBit) {
  // The line from (0, 0) to (2^52, 2^52 - 1) passes (2^51, 2^51 - 1/2): half a step from either.
  const GridPoint far{0x1p52, 0x1p52 - 1};
  EXPECT_FALSE(LiesOutside({0, 0}, far, {0x1p51, 0x1p51}));
  EXPECT_TRUE(LiesOutside({0, 0}, far, {0x1p51, 0x1p51 - 1}));
  // From the corners of the enclosing triangle: the diagonal through (0, 0).
  EXPECT_FALSE(LiesOutside({-kFar, -kFar}, {0x1p52, 0x1p52}, {5, 5}));
  EXPECT_TRUE(LiesOutside({-kFar, -kFar}, {0x1p52, 0x1p52}, {5, 4}));
  EXPECT_FALSE(LiesOutside({-kFar, -kFar}, {0x1p52, 0x1p52}, {5, 6}));
}

TEST(DelaunaySigns, ASquareKeepsItsDiagonal) {
  // Both angles are right ones: half a turn together.
  EXPECT_FALSE(Delaunay::swap({1, 0}, {0, 1}, {0, 0}, {1, 1}));
  EXPECT_TRUE(Delaunay::swap({1, 0}, {0, 1}, {0, 0}, {0.5, 0.5}));  // on the diagonal
  EXPECT_FALSE(Delaunay::swap({4, 0}, {0, 4}, {0, 0}, {5, 5}));     // both acute
  EXPECT_TRUE(Delaunay::swap({4, 0}, {0, 4}, {1, 1}, {3, 3}));      // both obtuse
  EXPECT_TRUE(Delaunay::swap({4, 0}, {0, 4}, {0, 0}, {3, 3}));      // right and obtuse
  EXPECT_TRUE(Delaunay::swap({4, 0}, {0, 4}, {-1, -1}, {2, 3}));    // acute and obtuse
  EXPECT_FALSE(Delaunay::swap({4, 0}, {0, 4}, {-9, -9}, {3, 3}));   // acute and obtuse
}

TEST(DelaunaySigns, CirclesAreToldApartToTheLastBit) {
  // a, b and c on the circle of radius 5 around (0, 0); (-4, 3) is on it, too: 3 and 4 squared.
  const GridPoint a{3, 4};
  const GridPoint b{-5, 0};
  const GridPoint c{4, -3};
  for (const double scale : {0x1p10, 0x1p30, 0x1p49, 0x1p56}) {
    const GridPoint on = Scaled({-4, 3}, scale);
    const double step = scale > 0x1p50 ? 64 : 1;  // from one double to the next at 2^58
    const auto inside = [&](double outward) {
      return ExceedHalfTurn(Scaled(a, scale), Scaled(b, scale), Scaled(c, scale),
                            {on.x - outward, on.y});
    };
    EXPECT_FALSE(inside(0)) << scale;
    EXPECT_FALSE(inside(step)) << scale;
    EXPECT_TRUE(inside(-step)) << scale;
  }
}

TEST(DelaunaySigns, AgreeWithTheDeterminants) {
  // On small places, where c lies to the left of the edge from a to b and p to the right.
  Random random(2);
  const auto place = [&random] { return static_cast<double>(random() % 12); };
  int exceeding = 0;
  for (int i = 0; i < 100000; ++i) {
    const std::array<GridPoint, 4> points{
        {{place(), place()}, {place(), place()}, {place(), place()}, {place(), place()}}};
    std::array<orvalix::test::WholePoint, 4> whole{};
    for (std::size_t k = 0; k < 4; ++k) {
      whole[k] = {static_cast<std::int64_t>(points[k].x), static_cast<std::int64_t>(points[k].y)};
    }
    const auto& [a, b, c, p] = points;
    const bool right = orvalix::test::DoubleArea(whole[0], whole[1], whole[3]) < 0;
    EXPECT_EQ(LiesOutside(a, b, p), right);
    EXPECT_EQ(LiesOutsideExactly(a, b, p), right);
    if (orvalix::test::DoubleArea(whole[0], whole[1], whole[2]) <= 0 || !right) continue;
    const bool inside = orvalix::test::InCircle(whole[0], whole[1], whole[2], whole[3]) > 0;
    EXPECT_EQ(ExceedHalfTurn(a, b, c, p), inside);
    EXPECT_EQ(ExceedHalfTurnExactly(a, b, c, p), inside);
    exceeding += inside ? 1 : 0;
    for (const double scale : {0x1p48, 0x1p55}) {  // the same, where products take 256 bits
      EXPECT_EQ(ExceedHalfTurnExactly(Scaled(a, scale), Scaled(b, scale), Scaled(c, scale),
                                      Scaled(p, scale)),
                inside);
    }
  }
  EXPECT_GT(exceeding, 1000);
}

TEST(DelaunaySigns, AreTheSameInBothArithmetics) {
  // Three points on a line, and four on a circle (3^2 + 4^2 = 5^2), each moved by 1 at most: too
  // little for doubles to tell.
  Random random(3);
  const auto nudged = [&random](double x, double y) -> GridPoint {
    return {std::floor(x) + static_cast<double>(random() % 3) - 1,
            std::floor(y) + static_cast<double>(random() % 3) - 1};
  };
  const auto below = [&random](double limit) {
    return static_cast<double>(random() % static_cast<std::uint64_t>(limit));
  };
  for (int i = 0; i < 100000; ++i) {
    const GridPoint start{below(0x1p51), below(0x1p51)};
    const GridPoint step{below(0x1p50), below(0x1p50)};
    const GridPoint end = nudged(start.x + 2 * step.x, start.y + 2 * step.y);
    const GridPoint middle = nudged(start.x + step.x, start.y + step.y);
    EXPECT_EQ(LiesOutside(start, end, middle), LiesOutsideExactly(start, end, middle));
    const double scale = 0x1p47 + below(0x1p47);
    const GridPoint a = nudged(3 * scale, 4 * scale);
    const GridPoint b = nudged(-5 * scale, 0);
    const GridPoint c = nudged(4 * scale, -3 * scale);
    const GridPoint p = nudged(-4 * scale, 3 * scale);
    EXPECT_EQ(ExceedHalfTurn(a, b, c, p), ExceedHalfTurnExactly(a, b, c, p));
    EXPECT_FALSE(ExceedHalfTurn({3 * scale, 4 * scale}, {-5 * scale, 0}, {4 * scale, -3 * scale},
                                {-4 * scale, 3 * scale}));
  }
}

TEST(DelaunaySigns, AreTheSameFromFarOut) {
  // Points as close to a line through a corner of the enclosing triangle as they can be: already
  // the way to there takes more bits than doubles have.
  Random random(4);
  const auto below = [&random](double limit) {
    return static_cast<double>(random() % static_cast<std::uint64_t>(limit));
  };
  const GridPoint corner{-kFar, -kFar};
  const long double far = kFar;
  for (int i = 0; i < 100000; ++i) {
    const GridPoint end{below(0x1p52), below(0x1p52)};
    const double x = below(0x1p52);
    const long double slope = (end.y + far) / (end.x + far);
    const long double y = end.y + slope * (x - end.x);
    const GridPoint p{x, static_cast<double>(std::floor(y)) + below(2)};
    EXPECT_EQ(LiesOutside(corner, end, p), LiesOutsideExactly(corner, end, p));
  }
}

}  // namespace
