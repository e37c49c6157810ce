#include "orvalix/axes/tic_walk_internal.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <utility>
#include <vector>

namespace {

using orvalix::TicRange;
using ::testing::DoubleNear;
using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::IsEmpty;
using ::testing::Pointwise;

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNotANumber = std::numeric_limits<double>::quiet_NaN();

MATCHER(NearlyEqual, "") {
  const double actual = std::get<0>(arg);
  const double expected = std::get<1>(arg);
  return std::abs(actual - expected) <= 1e-9 * std::abs(expected) + 1e-15;
}

struct Linear {
  std::vector<double> values;
  std::vector<int> counts;
};

Linear LinearTics(const TicRange& range, double step) {
  Linear tics;
  orvalix::VisitLinearTics(range, step, [&](double value, int count) {
    tics.values.push_back(value);
    tics.counts.push_back(count);
  });
  return tics;
}

/// Major tics as they are, minor ones negative.
std::vector<double> LogarithmicTics(const TicRange& range) {
  std::vector<double> tics;
  orvalix::VisitLogarithmicTics(
      range, [&](double value, bool major) { tics.push_back(major ? value : -value); });
  return tics;
}

std::vector<double> LogarithmicGrid(const TicRange& range, int nth, int nthMajor) {
  std::vector<double> lines;
  orvalix::VisitLogarithmicGrid(range, nth, nthMajor,
                                [&](double value) { lines.push_back(value); });
  return lines;
}

std::vector<double> LogarithmicLabels(const TicRange& range, int nthMajor) {
  std::vector<double> labels;
  orvalix::VisitLogarithmicLabels(range, nthMajor, [&](double value) { labels.push_back(value); });
  return labels;
}

TEST(LinearTics, GoUpFromTheCentreThenDown) {
  const Linear tics = LinearTics({.min = 0, .max = 10, .center = 2.5}, 1.0);
  EXPECT_THAT(tics.values, ElementsAre(2.5, 3.5, 4.5, 5.5, 6.5, 7.5, 8.5, 9.5, 1.5, 0.5));
  EXPECT_THAT(tics.counts, ElementsAre(0, 1, 2, 3, 4, 5, 6, 7, 1, 2));
}

TEST(LinearTics, ReachBothLimitsInSpiteOfRounding) {
  // Three times 0.1 is a little more than 0.3.
  EXPECT_THAT(LinearTics({.min = 0, .max = 0.3, .center = 0}, 0.1).values,
              Pointwise(NearlyEqual(), {0.0, 0.1, 0.2, 0.3}));
  const Linear down = LinearTics({.min = -0.3, .max = 0.3, .center = 0.3}, 0.1);
  EXPECT_THAT(down.values, Pointwise(NearlyEqual(), {0.3, 0.2, 0.1, 0.0, -0.1, -0.2, -0.3}));
  EXPECT_EQ(down.values[3], 0.0);  // no remainder of rounding, which would be labelled -0.0
  EXPECT_FALSE(std::signbit(down.values[3]));
}

TEST(LinearTics, NegativeStepsExchangeTheSeries) {
  EXPECT_THAT(LinearTics({.min = 0, .max = 3, .center = 1}, -1.0).values,
              ElementsAre(1.0, 0.0, 2.0, 3.0));
}

TEST(LinearTics, ACentreOutsideGivesNothing) {
  EXPECT_THAT(LinearTics({.min = -150, .max = 0, .center = 850}, 50).values, IsEmpty());
  EXPECT_THAT(LinearTics({.min = 1, .max = 2, .center = 0}, 1).values, IsEmpty());
}

TEST(LinearTics, EndForEveryInput) {
  const TicRange range{.min = 0, .max = 10, .center = 0};
  for (const double step : {0.0, kNotANumber, kInfinity, -kInfinity}) {
    EXPECT_THAT(LinearTics(range, step).values, IsEmpty()) << step;
  }
  for (const double bad : {kNotANumber, kInfinity, -kInfinity}) {
    EXPECT_LE(LinearTics({.min = 0, .max = 10, .center = bad}, 1).values.size(), 0U);
    EXPECT_LE(LinearTics({.min = bad, .max = 10, .center = 0}, 1).values.size(), 20000U);
    EXPECT_LE(LinearTics({.min = 0, .max = bad, .center = 0}, 1).values.size(), 20000U);
  }
  // A step that is lost against the value, and one far too small for the range.
  EXPECT_LE(LinearTics({.min = 0, .max = 1e300, .center = 1e299}, 1e-300).values.size(), 20000U);
  EXPECT_EQ(LinearTics(range, 1e-12).values.size(), 10000U);
  EXPECT_THAT(LinearTics({.min = 5, .max = 5, .center = 5}, 1).values, ElementsAre(5.0));
  EXPECT_THAT(LinearTics({.min = 6, .max = 5, .center = 5.5}, 1).values, IsEmpty());
}

TEST(LogarithmicTics, WalkTwiceFromTheCentre) {
  // The first walk: 10 to 90, then 100 alone (200 and on lie outside). The second: 10 again, down
  // to 1 by ones, and from there over everything once more.
  EXPECT_THAT(LogarithmicTics({.min = 1, .max = 120, .center = 10}),
              Pointwise(NearlyEqual(),
                        {10.0, -20.0, -30.0, -40.0, -50.0, -60.0, -70.0, -80.0, -90.0, 100.0,  // up
                         10.0, -9.0,  -8.0,  -7.0,  -6.0,  -5.0,  -4.0,  -3.0,  -2.0,  // down
                         1.0,  -2.0,  -3.0,  -4.0,  -5.0,  -6.0,  -7.0,  -8.0,  -9.0,  // again
                         10.0, -20.0, -30.0, -40.0, -50.0, -60.0, -70.0, -80.0, -90.0, 100.0}));
}

TEST(LogarithmicTics, LeaveTheDecadesFarBelowTheCentreOut) {
  for (const double tic : LogarithmicTics({.min = 0.001, .max = 20, .center = 10})) {
    EXPECT_GE(std::abs(tic), 0.999) << tic;
  }
}

TEST(LogarithmicTics, StopAtNineTenthsOfTheLimits) {
  // 100 is not below 0.9 * 105; neither is it reached when the maximum is 100 itself.
  const std::vector<double> tics = LogarithmicTics({.min = 10, .max = 105, .center = 10});
  EXPECT_THAT(tics, ::testing::Not(::testing::Contains(DoubleNear(100.0, 1e-9))));
  // A centre at or below 0.9 of the minimum draws nothing.
  EXPECT_THAT(LogarithmicTics({.min = 10, .max = 100, .center = 9}), IsEmpty());
  EXPECT_THAT(LogarithmicTics({.min = 10, .max = 100, .center = 90}), IsEmpty());
  EXPECT_FALSE(LogarithmicTics({.min = 10, .max = 100, .center = 89}).empty());
}

TEST(LogarithmicTics, LeaveMinorTicsOutsideOfTheLimitsOut) {
  EXPECT_THAT(LogarithmicTics({.min = 4, .max = 35, .center = 10}),
              Pointwise(NearlyEqual(), {10.0, -20.0, -30.0,                           // up
                                        10.0, -9.0, -8.0, -7.0, -6.0, -5.0, -4.0}));  // down
}

TEST(LogarithmicTics, EndForEveryInput) {
  for (const double bad : {0.0, -1.0, kNotANumber, kInfinity}) {
    EXPECT_LE(LogarithmicTics({.min = bad, .max = 100, .center = 10}).size(), 20000U);
    EXPECT_LE(LogarithmicTics({.min = 1, .max = bad, .center = 10}).size(), 20000U);
    EXPECT_LE(LogarithmicTics({.min = 1, .max = 100, .center = bad}).size(), 20000U);
  }
  EXPECT_THAT(LogarithmicTics({.min = -1, .max = 100, .center = 0}), IsEmpty());
  EXPECT_LE(LogarithmicTics({.min = 1e-300, .max = 1e300, .center = 1e-299}).size(), 20000U);
}

TEST(LogarithmicGrid, DrawsEveryTicByDefault) {
  std::vector<double> expected;
  for (const double tic : LogarithmicTics({.min = 1, .max = 120, .center = 10})) {
    expected.push_back(std::abs(tic));
  }
  for (const int nth : {1, 2, 9, -3}) {
    EXPECT_THAT(LogarithmicGrid({.min = 1, .max = 120, .center = 10}, nth, 10),
                ElementsAreArray(expected))
        << nth;
  }
  EXPECT_THAT(LogarithmicGrid({.min = 1, .max = 120, .center = 10}, 0, 10), IsEmpty());
}

TEST(LogarithmicGrid, DrawsOneTwoFive) {
  EXPECT_THAT(LogarithmicGrid({.min = 1, .max = 120, .center = 10}, 5, 10),
              Pointwise(NearlyEqual(), {10.0, 20.0, 50.0, 100.0,  // up
                                        10.0, 5.0, 2.0,           // down
                                        1.0, 2.0, 5.0, 10.0, 20.0, 50.0, 100.0}));
}

TEST(LogarithmicGrid, DrawsDecadesAloneTwice) {
  const TicRange range{.min = 1, .max = 20000, .center = 1};
  EXPECT_THAT(LogarithmicGrid(range, 10, 10),
              ElementsAre(1, 10, 100, 1000, 10000, 1, 10, 100, 1000, 10000));
  EXPECT_THAT(LogarithmicGrid(range, 99, 20), ElementsAre(1, 100, 10000, 1, 100, 10000));
  EXPECT_THAT(LogarithmicGrid(range, 10, 3),  // at least one decade
              ElementsAre(1, 10, 100, 1000, 10000, 1, 10, 100, 1000, 10000));
  EXPECT_THAT(LogarithmicGrid(range, 10, std::numeric_limits<int>::max()), ElementsAre(1, 1));
}

TEST(LogarithmicLabels, GoByDecadesWithTheCentreTwice) {
  for (const int nthMajor : {1, -1}) {
    EXPECT_THAT(LogarithmicLabels({.min = 1, .max = 1000, .center = 10}, nthMajor),
                Pointwise(NearlyEqual(), {10.0, 100.0, 1000.0, 10.0, 1.0}));
  }
}

TEST(LogarithmicLabels, GoByOneTwoFive) {
  EXPECT_THAT(LogarithmicLabels({.min = 0.1, .max = 50, .center = 1}, 2),
              Pointwise(NearlyEqual(), {1.0, 2.0, 5.0, 10.0, 20.0, 50.0, 1.0, 0.5, 0.2, 0.1}));
}

TEST(LogarithmicLabels, EndForEveryInput) {
  for (const double bad : {0.0, -1.0, kNotANumber, kInfinity}) {
    for (const int nthMajor : {1, 10}) {
      EXPECT_LE(LogarithmicLabels({.min = bad, .max = 100, .center = 10}, nthMajor).size(), 20000U);
      EXPECT_LE(LogarithmicLabels({.min = 1, .max = bad, .center = 10}, nthMajor).size(), 20000U);
      EXPECT_LE(LogarithmicLabels({.min = 1, .max = 100, .center = bad}, nthMajor).size(), 20000U);
    }
  }
  EXPECT_THAT(LogarithmicLabels({.min = 10, .max = 100, .center = 1}, 1), IsEmpty());
}

}  // namespace
